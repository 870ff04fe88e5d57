/// What a page of `kvocaeio view` takes in a headless Chromium: its size, the time until the first
/// picture is drawn, and pictures per second while the model turns.
import {statSync} from 'node:fs';
import {join} from 'node:path';
import {pathToFileURL} from 'node:url';

import {Browser, ShownPage} from '../tests/host/view/browser.mjs';

const browser = await Browser.start();
const target = join(browser.folder, 'page.html');
browser.run('view', process.argv[2], '--as-is', '-o', target);
const page = await browser.browser.newPage({viewport: {width: 1280, height: 800}});
const shown = new ShownPage(page, browser.reader);
const start = performance.now();
await page.goto(pathToFileURL(target).href);
await page.evaluate(
    () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
const opened = (performance.now() - start) / 1000;
await shown.settle();
const rate = await page.evaluate(async () => {
    const {viewer} = window.kvocaeioPage;
    const nextFrame = () => new Promise(requestAnimationFrame);
    const turnFor = async (milliseconds) => {
        const begin = performance.now();
        let frames = 0;
        for (; performance.now() - begin < milliseconds; ++frames) {
            viewer.turn(0.03);
            await nextFrame();
        }
        return 1000 * frames / (performance.now() - begin);
    };
    await turnFor(2000);  // until the resolution has settled
    return turnFor(5000);
});
const megabytes = statSync(target).size / 1e6;
console.log(`page ${megabytes.toFixed(1)} MB, opened in ${opened.toFixed(1)} s, ${rate.toFixed(0)} pictures/s`);
await browser.stop();
