/// The keyboard.
import {byId, make} from './dom.js';
import {directions} from './viewer.js';

const keyTable = [
    ['← ↑ → ↓', 'turn'],
    ['+ −', 'zoom'],
    ['F', 'fit'],
    ['1 … 7', 'isometric, front, back, left, right, top, bottom'],
    ['P', 'parallel or perspective'],
    ['E, A', 'feature edges, all edges'],
    ['B, X', 'bounding box, axes'],
    ['C', 'cutting plane: off, x, y, z'],
    ['[ ]', 'move the cutting plane'],
    ['N', 'next finding that is marked'],
    ['D', 'dark or light'],
    ['S', 'screenshot'],
    ['M', 'show or hide the lists'],
    ['Esc', 'unmark, close'],
];

export function showKeys(isShown = byId('keys').hidden) {
    const list = make(
        'dl', {},
        ...keyTable.flatMap(
            ([key, what]) => [make('dt', {}, make('kbd', {}, key)), make('dd', {}, what)]));
    byId('keys').replaceChildren(list);
    byId('keys').hidden = !isShown;
    document.querySelector('[data-do="help"]').setAttribute('aria-expanded', isShown);
}

/// What each key does to `page`.
function actionsOf(page) {
    const {viewer} = page;
    const step = Math.PI / 24;
    const toggle = (id) => page.setOption(id, !document.getElementById(id).checked);
    const cuts = ['', 'x', 'y', 'z'];
    const actions = {
        ArrowLeft: () => viewer.turn(-step),
        ArrowRight: () => viewer.turn(step),
        ArrowUp: () => viewer.turn(0, -step),
        ArrowDown: () => viewer.turn(0, step),
        '+': () => viewer.zoom(1.15),
        '=': () => viewer.zoom(1.15),
        '-': () => viewer.zoom(1 / 1.15),
        f: () => page.fit(),
        p: () => page.actions.parallel(),
        e: () => toggle('features'),
        a: () => byId('allEdges').hidden || toggle('edges'),
        b: () => toggle('box'),
        x: () => toggle('axes'),
        c: () => {
            const now = document.querySelector('[data-cut][aria-pressed="true"]').dataset.cut;
            page.setCut(cuts[(cuts.indexOf(now) + 1) % cuts.length]);
        },
        '[': () => page.moveCut(page.cut.position - 0.02),
        ']': () => page.moveCut(page.cut.position + 0.02),
        n: () => nextFinding(page),
        d: () => page.actions.theme(),
        s: () => page.actions.shot(),
        m: () => page.fold(),
        '?': () => showKeys(),
        Escape: () => {
            showKeys(false);
            if (page.finding !== null)
                page.showFinding(page.finding);
            page.unpick();
        },
    };
    Object.keys(directions)
        .forEach((name, i) => (actions[i + 1] = () => viewer.fit(directions[name])));
    return actions;
}

function nextFinding(page) {
    const marked = page.data.findings.filter((finding) => finding.row !== undefined);
    const next = marked[(marked.indexOf(page.finding) + 1) % marked.length];
    if (next !== undefined && next !== page.finding)
        page.showFinding(next);
}

export function listenToKeys(page) {
    const actions = actionsOf(page);
    document.addEventListener('keydown', (event) => {
        const isTyped = event.target.closest('input[type="range"], select') !== null;
        if (event.ctrlKey || event.metaKey || event.altKey || (isTyped && event.key !== 'Escape'))
            return;
        const action = actions[event.key] ?? actions[event.key.toLowerCase()];
        if (action === undefined)
            return;
        event.preventDefault();
        action();
    });
}
