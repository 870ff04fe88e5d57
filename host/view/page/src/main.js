/// Puts the page together.
import * as THREE from 'three';

import {Cut} from './cut.js';
import {readScene} from './data.js';
import {byId} from './dom.js';
import {listenToKeys, showKeys} from './keys.js';
import {isMarked, setAllParts, showFindings, showLegend, showParts, showPicked} from './lists.js';
import {MeshScene} from './mesh_scene.js';
import {counted, length} from './numbers.js';
import {Overlay} from './overlay.js';
import {PackageScene} from './package_scene.js';
import {screenshot} from './screenshot.js';
import {directions, Viewer} from './viewer.js';

// Colours are what the files and this page name, to the bit.
THREE.ColorManagement.enabled = false;

const themes = {
    light: {back: '#eef1f4', edge: '#20262c', text: '#1d2329', label: '#ffffff', line: '#6b7680'},
    dark: {back: '#15191d', edge: '#0b0e10', text: '#e6eaee', label: '#1e2429', line: '#7d8a95'},
};

/// What the page starts with: the program's wishes, then those behind the # of its address.
function wishesOf(data) {
    const hash = new URLSearchParams(location.hash.slice(1));
    return {...data.start, ...Object.fromEntries(hash)};
}

class Page {
    constructor(data) {
        this.data = data;
        this.wishes = wishesOf(data);
        this.planes = [];
        this.box =
            new THREE.Box3(new THREE.Vector3(...data.box.min), new THREE.Vector3(...data.box.max));
        this.viewer = new Viewer(byId('picture'), this.box);
        this.model = data.content === 'mesh' ? new MeshScene(data, this.planes) :
                                               new PackageScene(data, this.planes);
        this.viewer.model.add(this.model.object);
        this.viewer.shown = this.model;
        // Marked nodes may be far from all elements.
        this.viewer.reach =
            this.box.clone().union(new THREE.Box3().setFromArray(data.nodes?.places ?? []));
        this.cut = new Cut(this.viewer, this.planes);
        this.overlay = new Overlay(byId('overlay'), this.viewer, data.unit);
        this.finding = null;
        this.fillLists();
        this.listen();
        this.setTheme(
            this.wishes.theme ??
            (matchMedia('(prefers-color-scheme: dark)').matches ? 'dark' : 'light'));
        this.start();
    }

    fillLists() {
        const {data} = this;
        byId('title').textContent = data.title;
        byId('summary').textContent = [
            data.format, ...data.counts.map(([number, things]) => `${counted(number)} ${things}`)
        ].join(' · ');
        showParts(this.model.parts, data.content === 'package', () => this.changed());
        showFindings(data.findings, data.notes, (finding) => this.showFinding(finding));
        byId('allEdges').hidden = data.content === 'package';
        byId('stretch').hidden = data.content === 'mesh';
    }

    start() {
        const {wishes} = this;
        const isPicture = 'picture' in wishes;
        const wanted = this.data.findings.find(({code}) => code === wishes.finding);
        document.body.classList.toggle('picture', isPicture);
        if (isPicture)
            showLegend(this.data, this.model.parts, wanted, wishes.stretch);
        this.viewer.resize();
        if (wishes.projection === 'parallel')
            this.setParallel(true);
        this.viewer.fit(directions[wishes.view] ?? directions.iso);
        if (wishes.stretch)
            this.setStretch(Number(wishes.stretch));
        if (wishes.edges === 'all')
            this.setOption('edges', true);
        if (wishes.cut) {
            const [axis, place] = wishes.cut.split(':');
            this.cut.position = Number(place ?? 0.5);
            this.setCut(axis);
        }
        if (wanted && isMarked(wanted))
            this.showFinding(wanted);
        this.viewer.drawNow();
        this.viewer.animates = !isPicture;
    }

    /// After a change of what is shown.
    changed() {
        this.model.update();
        this.cut.update(this.model);
        this.viewer.draw();
    }

    setTheme(name) {
        this.theme = name;
        const theme = themes[name] ?? themes.light;
        document.documentElement.dataset.theme = name;
        document.querySelector('[data-do="theme"]').textContent =
            name === 'dark' ? 'Light' : 'Dark';
        this.viewer.renderer.setClearColor(theme.back, 1);
        this.model.settings.edgeColour = theme.edge;
        this.overlay.theme = {text: theme.text, back: theme.label, line: theme.line};
        this.overlay.update();
        this.changed();
    }

    setParallel(isParallel) {
        this.viewer.setParallel(isParallel);
        document.querySelector('[data-do="parallel"]').setAttribute('aria-pressed', isParallel);
    }

    /// One of the check boxes under Display.
    setOption(id, isOn) {
        byId(id).checked = isOn;
        if (id === 'features')
            this.model.settings.features = isOn;
        else if (id === 'edges')
            this.model.settings.all = isOn;
        else
            this.overlay[id === 'box' ? 'showsBox' : 'showsAxes'] = isOn;
        this.overlay.update();
        this.changed();
    }

    setStretch(factor) {
        this.viewer.model.scale.z = factor;
        this.viewer.model.updateMatrixWorld(true);
        const row = byId('stretch');
        row.querySelector('input').value = Math.log(factor) / Math.log(50);
        row.querySelector('output').value = `${length(Number(factor.toPrecision(2)))} ×`;
        this.overlay.update();
        this.changed();
    }

    /// `along`: "x", "y", "z", "eye" for across the line of sight, or "".
    setCut(along) {
        // What hides the cut from the eye is taken away.
        this.cut.isFlipped = (this.viewer.direction['xyz'.indexOf(along)] ?? 1) < 0;
        byId('flip').setAttribute('aria-pressed', this.cut.isFlipped);
        this.cut.setAxis(along === 'eye' ? this.viewer.direction : along || null, this.model);
        for (const button of document.querySelectorAll('[data-cut]'))
            button.setAttribute('aria-pressed', button.dataset.cut === along);
        byId('cutPlace').hidden = !along;
        this.showCut();
        this.changed();
    }

    showCut() {
        if (!this.cut.isOn)
            return;
        const row = byId('cutPlace');
        row.querySelector('input').value = this.cut.position;
        const shift = this.cut.normal.dot(new THREE.Vector3(...(this.data.origin ?? [0, 0, 0])));
        const stretch = this.cut.normal.z === 1 ? this.viewer.model.scale.z : 1;
        row.querySelector('output').value = `${length(this.cut.range.at / stretch + shift)}${
            this.data.unit ? ' ' + this.data.unit : ''}`;
    }

    moveCut(position) {
        this.cut.position = Math.min(1, Math.max(0, position));
        this.showCut();
        this.changed();
    }

    flipCut() {
        this.cut.isFlipped = !this.cut.isFlipped;
        byId('flip').setAttribute('aria-pressed', this.cut.isFlipped);
        this.changed();
    }

    /// Flies to what the finding is about; the one that is shown is put away.
    showFinding(finding) {
        const next = this.finding === finding ? null : finding;
        this.finding?.row.setAttribute('aria-pressed', 'false');
        next?.row.setAttribute('aria-pressed', 'true');
        this.finding = next;
        const box = this.model.showFinding(next);
        this.cut.update(this.model);
        if (box !== null && !box.isEmpty())
            this.viewer.flyToBox(box, 3);
        this.viewer.draw();
    }

    pick(x, y) {
        const hit = this.model.pick(this.viewer.rayThrough(x, y));
        this.showPick(hit);
        return hit;
    }

    unpick() { this.showPick(null); }

    showPick(hit) {
        this.model.select(hit);
        showPicked(hit, this.data);
        this.viewer.draw();
    }

    listen() {
        const {viewer} = this;
        const canvas = byId('picture');
        let pressed = null;
        canvas.addEventListener('pointerdown', (event) => (pressed = event));
        canvas.addEventListener('pointerup', (event) => {
            const isClick = pressed !== null && event.button === 0 &&
                Math.hypot(event.clientX - pressed.clientX, event.clientY - pressed.clientY) < 5;
            if (!isClick)
                return;
            const frame = canvas.getBoundingClientRect();
            this.pick(event.clientX - frame.left, event.clientY - frame.top);
        });
        this.actions = {
            fit: () => this.fit(),
            parallel: () => this.setParallel(!viewer.isParallel),
            theme: () => this.setTheme(this.theme === 'dark' ? 'light' : 'dark'),
            shot: () => screenshot(viewer, this.overlay, this.data.title),
            help: () => showKeys(),
            all: () => this.setAll(true),
            none: () => this.setAll(false),
        };
        for (const button of document.querySelectorAll('[data-do]'))
            button.addEventListener('click', () => this.actions[button.dataset.do]());
        for (const button of document.querySelectorAll('[data-cut]'))
            button.addEventListener('click', () => this.setCut(button.dataset.cut));
        for (const id of ['features', 'edges', 'box', 'axes'])
            byId(id).addEventListener('change', () => this.setOption(id, byId(id).checked));
        byId('views').addEventListener('change', () => {
            viewer.fit(directions[byId('views').value]);
            byId('views').value = '';
        });
        byId('stretch').querySelector('input').addEventListener(
            'input', (event) => this.setStretch(50 ** Number(event.target.value)));
        byId('cutPlace')
            .querySelector('input')
            .addEventListener('input', (event) => this.moveCut(Number(event.target.value)));
        byId('flip').addEventListener('click', () => this.flipCut());
        byId('fold').addEventListener('click', () => this.fold());
        listenToKeys(this);
    }

    fit(direction) {
        if (this.finding !== null)
            this.showFinding(this.finding);
        this.viewer.fit(direction);
    }

    setAll(isVisible) {
        setAllParts(this.model.parts, isVisible);
        this.changed();
    }

    fold() {
        const isFolded = byId('panel').classList.toggle('folded');
        byId('fold').setAttribute('aria-expanded', !isFolded);
    }
}

try {
    window.kvocaeioPage = new Page(readScene());
} catch (error) {
    // The lists may have been filled; only the picture is missing.
    byId('failure').textContent = `The picture cannot be shown: ${error.message}`;
    byId('failure').hidden = false;
    console.error(error);
}
