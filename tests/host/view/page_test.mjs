/// The pages of kvocaeio view, used as people use them.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import {join} from 'node:path';
import {after, before, test} from 'node:test';
import {pathToFileURL} from 'node:url';

import {Browser, isLit} from './browser.mjs';

const sources = process.env.SOURCES;
const sample = (name) => join(sources, 'examples', 'data', name);
const faulty = join(sources, 'tests', 'host', 'view', 'faulty.inp');
const palette = await import(pathToFileURL(join(sources, 'host/view/page/src/palette.js')));

// The first sections of every page, and what lies under them.
const [blue, orange, green] = ['#286ea9', '#f5a53b', '#3aa182'];
const red = '#e60026';

let browser;
before(async () => (browser = await Browser.start()));
after(() => browser.stop());

/// Opens a page for one test, at the end of which it must have complained of nothing and asked for
/// nothing but itself.
function pageTest(name, file, options, body) {
    test(name, async () => {
        const shown = await browser.open(file, options);
        await body(shown, shown.page);
        assert.deepEqual(shown.faults, []);
        assert.deepEqual(shown.requests.filter((url) => !/^(file|blob|data):/.test(url)), []);
        await shown.page.close();
    });
}
const asIs = {
    words: ['--as-is']
};

pageTest('the lists count what the file holds', faulty, asIs, async (shown) => {
    assert.equal(await shown.text('#summary'), 'Abaqus input deck · 18 nodes · 5 elements');
    assert.deepEqual((await shown.texts('#parts .name')).map((text) => text.split('\n')), [
        ['BODY', '1 hexahedron'],
        ['TURNED', '1 hexahedron'],
        ['</SCRIPT><B>X', '1 hexahedron'],
        ['Dload_Shell', 'faces of loads · 1 quadrilateral'],
        ['Surface_Shell', 'faces of surfaces · 1 quadrilateral'],
    ]);
    assert.equal(await shown.page.locator('#parts b').count(), 0);
});

pageTest('sections have their colours and can be switched off', faulty, asIs, async (shown) => {
    await shown.press('2');  // front: the faces at y = 0
    const middles = [[5, 0, 5], [15, 0, 5], [25, 0, 5]];
    const colours = await shown.coloursAt(middles);
    assert.ok(
        [blue, orange, green].every((colour, i) => isLit(colours[i], colour)), colours.join());
    await shown.click('#parts li:nth-child(1) input[type=checkbox]');
    const [body, turned] = await shown.coloursAt(middles);
    assert.equal(body, '#eef1f4');
    assert.ok(isLit(turned, orange));
    await shown.click('[data-do=none]');
    assert.deepEqual(await shown.coloursAt(middles), Array(3).fill('#eef1f4'));
    await shown.click('[data-do=all]');
    assert.ok(isLit(await shown.colourAt(5, 0, 5), blue));
});

pageTest(
    'faces of loads and surfaces lie on those of elements, patterned', faulty, asIs,
    async (shown) => {
        const spread = (from, to) => Array.from(
            {length: 40},
            (_, i) => from.map((value, axis) => value + (to[axis] - value) * (i + 0.5) / 40));
        await shown.press('6');  // top: the load is on face 2 of element 1, z = 10
        const load = await shown.coloursAt(spread([1, 2, 10], [9, 8, 10]));
        assert.ok(load.filter((colour) => isLit(colour, '#d6006c')).length > 30, load.join());
        assert.ok(new Set(load).size > 1);
        await shown.press('5');  // right: the surface is at x = 30
        const surface = await shown.coloursAt(spread([30, 2, 1], [30, 8, 9]));
        assert.ok(surface.filter((colour) => isLit(colour, '#19a0a6')).length > 30, surface.join());
    });

pageTest('a pick shows section, numbers and coordinates', faulty, asIs, async (shown) => {
    await shown.press('2');
    await shown.clickOn(5, 0, 5);
    const rows = (await shown.texts('#picked tr')).map((text) => text.split('\t'));
    assert.deepEqual(rows.slice(0, 5), [
        ['Section', 'BODY'],
        ['Element OID', '1'],
        ['Kind', 'hexahedron'],
        ['Face', '3'],
        ['At', '5, 0, 5'],
    ]);
    assert.deepEqual(rows.slice(5), [
        ['Node OID', 'x', 'y', 'z'],
        ['1', '0', '0', '0'],
        ['2', '10', '0', '0'],
        ['3', '10', '10', '0'],
        ['4', '0', '10', '0'],
        ['5', '0', '0', '10'],
        ['6', '10', '0', '10'],
        ['7', '10', '10', '10'],
        ['8', '0', '10', '10'],
    ]);
    await shown.page.mouse.click(360, 60);  // beside the model
    await shown.settle();
    assert.equal(await shown.page.locator('#picked').isVisible(), false);
});

pageTest('the plane cuts, and closes what it opens', sample('housing.inp'), {}, async (shown) => {
    await shown.click('[data-cut=x]');
    assert.match(await shown.text('#cutPlace output'), /^30$/);
    const [wall, gone] = await shown.coloursAt([[30, 20, 1], [55, 0, 10]]);
    assert.ok(isLit(wall, blue), wall);
    assert.equal(gone, '#eef1f4');
    await shown.clickOn(30, 20, 1);
    assert.match(
        await shown.text('#picked'),
        /HOUSING[^]*inside of the section[^]*At\s+30, 20, (1|0\.9\d+)$/);
    await shown.press('[');
    assert.match(await shown.text('#cutPlace output'), /^28.8$/);
    await shown.click('#flip');
    assert.equal(await shown.colourAt(2, 0, 10), '#eef1f4');
    await shown.click('[data-cut=""]');
    assert.ok(isLit(await shown.colourAt(2, 0, 10), blue));
});

pageTest('a finding is flown to and its elements are marked', faulty, asIs, async (shown) => {
    const before = await shown.colourAt(15, 0, 5);
    const row = '#findings li.marked:has-text("mesh.volume-not-positive")';
    assert.match(
        await shown.text(row),
        /warning: elements have no volume or a negative one[^]*Show 1 element$/);
    await shown.click(row);
    const target =
        await shown.page.evaluate(() => window.kvocaeioPage.viewer.controls.target.toArray());
    assert.ok(Math.hypot(target[0] - 15, target[1] - 5, target[2] - 5) < 3, target.join());
    const [marked, other] = await shown.coloursAt([[15, 0, 5], [5, 0, 5]]);
    assert.notEqual(marked, before);
    assert.ok(
        parseInt(marked.slice(1, 3), 16) > 100 && parseInt(marked.slice(3, 5), 16) < 90, marked);
    assert.ok(parseInt(other.slice(3, 5), 16) > 120, other);
    await shown.press('Escape');
    await shown.press('F');
    assert.ok(isLit(await shown.colourAt(15, 0, 5), orange));
});

pageTest(
    'nodes that a blank line made, and faces that no element has, are marked', faulty, asIs,
    async (shown) => {
        await shown.click('#findings li:has-text("abaqus.node-without-number")');
        assert.ok(isLit(await shown.colourAt(0, 0, 0), red));
        await shown.click('#findings li:has-text("abaqus.face-label")');
        const target =
            await shown.page.evaluate(() => window.kvocaeioPage.viewer.controls.target.toArray());
        assert.ok(Math.hypot(target[0] - 5, target[1] - 5, target[2] - 5) < 3, target.join());
    });

pageTest('the keyboard does what the buttons do', sample('hinge.inp'), {}, async (shown, page) => {
    const state = () => page.evaluate(() => {
        const {viewer, theme, model} = window.kvocaeioPage;
        return {
            direction: viewer.direction.map((part) => Math.round(part) + 0),
            isParallel: viewer.isParallel,
            theme,
            ...model.settings
        };
    });
    await shown.press('2');
    assert.deepEqual((await state()).direction, [0, -1, 0]);
    await shown.press('6');
    assert.deepEqual((await state()).direction, [0, 0, 1]);
    await shown.press('p');
    await shown.press('e');
    await shown.press('a');
    await shown.press('d');
    const {isParallel, theme, features, all} = await state();
    assert.deepEqual([isParallel, theme, features, all], [true, 'dark', false, true]);
    assert.equal(await page.locator('#edges').isChecked(), true);
    assert.equal(await page.evaluate(() => document.documentElement.dataset.theme), 'dark');
    await shown.press('?');
    assert.match(await shown.text('#keys'), /cutting plane/);
    await shown.press('Escape');
    assert.equal(await page.locator('#keys').isVisible(), false);
});

pageTest('edges are drawn where faces meet, or on all elements', faulty, asIs, async (shown) => {
    await shown.press('2');
    await shown.press('b');
    const dark = (colour) =>
        parseInt(colour.slice(1, 3), 16) + parseInt(colour.slice(3, 5), 16) < 90;
    const around =
        [9.85, 9.9, 9.95, 10, 10.05, 10.1, 10.15].map((x) => [x, 0, 5]);  // a border of sections
    assert.ok((await shown.coloursAt(around)).some(dark));
    await shown.click('#features');
    assert.ok(!(await shown.coloursAt(around)).some(dark));
});

pageTest(
    'the screenshot has the picture and what is written over it', faulty, asIs,
    async (shown, page) => {
        const waiting = page.waitForEvent('download');
        await page.locator('[data-do=shot]').click();
        const download = await waiting;
        assert.equal(download.suggestedFilename(), 'faulty.png');
        const png = readFileSync(await download.path());
        assert.deepEqual([...png.subarray(1, 4)], [0x50, 0x4e, 0x47]);
        assert.equal(png.readUInt32BE(20), 1280);  // two pixels for each of the page's 640
    });

pageTest(
    'a phone has the lists below the picture', faulty, {
        ...asIs,
        viewport: {width: 360, height: 740},
        deviceScaleFactor: 2,
        hasTouch: true,
        isMobile: true,
        colorScheme: 'dark'
    },
    async (shown, page) => {
        const boxes = await page.evaluate(() => {
            const of = (id) => document.getElementById(id).getBoundingClientRect().toJSON();
            return {
                stage: of('stage'),
                panel: of('panel'),
                width: document.documentElement.scrollWidth
            };
        });
        assert.equal(boxes.width, 360);
        assert.ok(
            boxes.panel.top >= boxes.stage.bottom && boxes.stage.height > 350,
            JSON.stringify(boxes));
        await shown.click('#fold');
        assert.equal(await page.locator('#lists').isVisible(), false);
        assert.equal(
            await shown.page.evaluate(() => document.documentElement.dataset.theme), 'dark');
        const {x, y} = await shown.pixelOf(5, 0, 5);
        await page.touchscreen.tap(x, y);
        await shown.settle();
        await shown.click('#fold');
        assert.match(await shown.text('#picked'), /BODY/);
    });

pageTest(
    'a package has its colours, sizes and wires', sample('stack.3di'), {}, async (shown, page) => {
        assert.equal(
            await shown.text('#summary'),
            '3DI package · 7 bodies · 160 solder balls · 96 bond wires');
        const rows = await shown.texts('#parts .name');
        assert.ok(rows.includes('SUBSTRATE\nsubstrate, 14 × 14 × 0.3 mm'), rows.join('|'));
        assert.ok(rows.includes('BOTTOM\n160 solder balls, ⌀ 0.5 mm'), rows.join('|'));
        assert.ok(rows.includes('AU20_LOW\n48 bond wires, ⌀ 0.02 mm'), rows.join('|'));
        await shown.press('7');  // bottom: balls under the substrate
        assert.ok(isLit(await shown.colourAt(6.2, 0, 0), '#006000'));
        await shown.press('6');
        const cap = page.locator('#parts li:has-text("PACKAGECAP") input[type=range]');
        assert.equal(await cap.inputValue(), '0.25');
        const throughCap = await shown.colourAt(0.3, 0.3, 0.9);
        await cap.fill('0');
        await shown.settle();
        const bare = await shown.colourAt(0.3, 0.3, 0.9);
        assert.ok(
            isLit(bare, '#b4b4be') && bare > throughCap,
            `${bare} ${throughCap}`);  // the cap is dark
        assert.ok(isLit(await shown.colourAt(6.8, 6.8, 0.3), '#006000'));
    });

pageTest(
    'wires are tubes of their diameter, and z can be stretched', sample('stack.3di'), {},
    async (shown, page) => {
        // A wire's first segment, from above: its middle, and the two sides of a tube of 0.02 mm.
        await page.evaluate(() => {
            const {viewer, model} = window.kvocaeioPage;
            model.parts.find((part) => part.kind === 'package cap').visible = false;
            window.kvocaeioPage.changed();
            const Vector = viewer.camera.position.constructor;
            const at = new Vector(3.6508, -3.1041, 0.48436);
            viewer.place(
                {target: at, position: at.clone().add(new Vector(0, -1e-5, 0.5)), height: 0.3});
        });
        await shown.settle();
        const across = [0.3801, 0.925];
        const place =
            (distance) => [3.6508 + across[0] * distance, -3.1041 + across[1] * distance, 0.48436];
        const [middle, inside, outside] =
            await shown.coloursAt([place(0), place(0.008), place(0.013)]);
        assert.ok(isLit(middle, '#e6be3c') && isLit(inside, '#e6be3c'), `${middle} ${inside}`);
        assert.ok(!isLit(outside, '#e6be3c'), outside);
        await shown.clickOn(...place(0));
        assert.match(await shown.text('#picked'), /AU20_LOW[^]*Diameter\s+0.02 mm[^]*Points\s+7/);
        const height = () => page.evaluate(() => window.kvocaeioPage.viewer.shownBox.max.z);
        const before = await height();
        await page.locator('#stretch input').fill('1');
        assert.ok(Math.abs((await height()) / before - 50) < 1e-6);
    });

test('the pictures of the pages show what the program draws', async () => {
    const drawn = join(browser.folder, 'pictures');
    browser.draw(drawn);
    for (const name of ['mesh.png', 'package.png', 'finding.png']) {
        const read = (folder) => readFileSync(join(folder, name)).toString('base64');
        const difference =
            await browser.difference(read(drawn), read(join(sources, 'docs', 'pictures')));
        // Letters may look different, and lines lie half a pixel beside.
        assert.ok(difference < 1.5, `${name}: ${difference}; scripts/pictures.sh makes them anew`);
    }
});

test('pictures of different things differ', async () => {
    const [mesh, finding] = ['mesh.png', 'finding.png'].map(
        (name) => readFileSync(join(sources, 'docs', 'pictures', name)).toString('base64'));
    assert.ok(await browser.difference(mesh, finding) > 5);
});

test('colours can be told apart by their lightness alone', () => {
    const lightness = (colour) => {
        const [r, g, b] = palette.partsOf(colour).map(
            (part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4));
        return 116 * Math.cbrt(0.2126 * r + 0.7152 * g + 0.0722 * b) - 16;
    };
    const steps = palette.sectionColours.map(lightness).sort((a, b) => a - b);
    for (let i = 1; i < steps.length; ++i)
        assert.ok(steps[i] - steps[i - 1] > 6, steps.map(Math.round).join(' '));
    const styles = Array.from({length: 40}, (_, i) => JSON.stringify(palette.styleOf('solid', i)));
    assert.equal(new Set(styles).size, 40);
});
