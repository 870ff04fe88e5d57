/// Pages in a headless Chromium, as the tests of the page use them.
import {execFileSync} from 'node:child_process';
import {mkdtempSync, rmSync} from 'node:fs';
import {createRequire} from 'node:module';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {pathToFileURL} from 'node:url';

const {PROGRAM: program, CHROMIUM: chromiumPath, NODE_MODULES: modules} = process.env;
const {chromium} = createRequire(join(modules, 'tests.cjs'))('playwright-core');

export class Browser {
    static async start() {
        const browser = new Browser();
        browser.folder = mkdtempSync(join(tmpdir(), 'kvocaeio-view-'));
        browser.browser = await chromium.launch({
            executablePath: chromiumPath,
            args: [
                '--no-sandbox', '--use-gl=angle', '--use-angle=swiftshader',
                '--enable-unsafe-swiftshader'
            ],
        });
        browser.reader = await browser.browser.newPage();
        return browser;
    }

    async stop() {
        await this.browser.close();
        rmSync(this.folder, {recursive: true});
    }

    /// What the program prints.
    run(...words) { return execFileSync(program, words, {encoding: 'utf8'}); }

    /// Has the script draw the pictures of the documentation into `folder`.
    draw(folder) {
        execFileSync(
            join(process.env.SOURCES, 'scripts', 'pictures.sh'), [program, folder],
            {env: {...process.env, KVOCAEIO_BROWSER: chromiumPath}});
    }

    /// By how much two pictures differ on average, in levels of 0 to 255, at a twelfth of their
    /// size.
    difference(one, other) {
        return this.reader.evaluate(async (pictures) => {
            const [first, second] = await Promise.all(pictures.map(async (png) => {
                const image = new Image();
                image.src = `data:image/png;base64,${png}`;
                await image.decode();
                const canvas = new OffscreenCanvas(image.width / 12, image.height / 12);
                const pen = canvas.getContext('2d');
                pen.imageSmoothingQuality = 'high';
                pen.drawImage(image, 0, 0, canvas.width, canvas.height);
                return pen.getImageData(0, 0, canvas.width, canvas.height);
            }));
            if (first.width !== second.width || first.height !== second.height)
                return 255;
            return first.data.reduce((sum, value, i) => sum + Math.abs(value - second.data[i]), 0) /
                first.data.length;
        }, [one, other]);
    }

    /// The page of `file`, made by the program with `words` and opened.
    async open(file, {words = [], hash = '', ...options} = {}) {
        const target = join(this.folder, 'page.html');
        this.run('view', file, '-o', target, ...words);
        const page = await this.browser.newPage({
            viewport: {width: 1000, height: 640},
            colorScheme: 'light',
            reducedMotion: 'reduce',
            ...options,
        });
        const shown = new ShownPage(page, this.reader);
        await page.goto(pathToFileURL(target).href + hash);
        await shown.settle();
        return shown;
    }
}

export class ShownPage {
    constructor(page, reader) {
        this.page = page;
        this.reader = reader;
        this.faults = [];
        this.requests = [];
        page.on('console', (message) => {
            if (['error', 'warning'].includes(message.type()) && !/GPU stall/.test(message.text()))
                this.faults.push(message.text());
        });
        page.on('pageerror', (error) => this.faults.push(error.message));
        page.on('request', (request) => this.requests.push(request.url()));
    }

    /// Waits until the picture is drawn at rest.
    async settle() {
        await this.page.evaluate(
            () => new Promise((done) => {
                const {viewer} = window.kvocaeioPage;
                const look = () => {
                    const isAtRest =
                        performance.now() - viewer.lastMove > 250 && viewer.pending === undefined;
                    isAtRest ? requestAnimationFrame(() => requestAnimationFrame(done)) :
                               setTimeout(look, 20);
                };
                look();
            }));
    }

    /// The pixel of the page at which a place of the model is.
    async pixelOf(...place) {
        return this.page.evaluate((numbers) => {
            const {viewer} = window.kvocaeioPage;
            const Vector = viewer.camera.position.constructor;
            const {x, y} = viewer.project(new Vector(...numbers));
            const frame = viewer.canvas.getBoundingClientRect();
            return {x: x + frame.left, y: y + frame.top};
        }, place);
    }

    async clickOn(...place) {
        const {x, y} = await this.pixelOf(...place);
        await this.page.mouse.click(x, y);
        await this.settle();
    }

    /// Colours in a screenshot at places of the model, as "#rrggbb".
    async coloursAt(places) {
        const points = [];
        for (const place of places)
            points.push(await this.pixelOf(...place));
        const picture = (await this.page.screenshot()).toString('base64');
        return this.reader.evaluate(async ([png, pixels]) => {
            const image = new Image();
            image.src = `data:image/png;base64,${png}`;
            await image.decode();
            const canvas = new OffscreenCanvas(image.width, image.height);
            const pen = canvas.getContext('2d');
            pen.drawImage(image, 0, 0);
            return pixels.map(({x, y}) => {
                const [r, g, b] = pen.getImageData(Math.round(x), Math.round(y), 1, 1).data;
                return '#' + [r, g, b].map((part) => part.toString(16).padStart(2, '0')).join('');
            });
        }, [picture, points]);
    }

    async colourAt(...place) { return (await this.coloursAt([place]))[0]; }

    text(selector) { return this.page.locator(selector).innerText(); }

    texts(selector) { return this.page.locator(selector).allInnerTexts(); }

    press(key) { return this.page.keyboard.press(key).then(() => this.settle()); }

    click(selector) { return this.page.locator(selector).click().then(() => this.settle()); }
}

const partsOf = (colour) => [1, 3, 5].map((at) => parseInt(colour.slice(at, at + 2), 16));

/// Whether `shown` is `colour` in any light.
export function isLit(shown, colour) {
    const a = partsOf(shown);
    const b = partsOf(colour);
    const dot = a.reduce((sum, part, i) => sum + part * b[i], 0);
    const lengths = Math.hypot(...a) * Math.hypot(...b);
    const light = Math.hypot(...a) / Math.hypot(...b);
    return dot / lengths > 0.995 && light > 0.4 && light < 1.15;
}
