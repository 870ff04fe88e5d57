/// What is written over the picture: the axes, and the bounding box with its dimensions.
import * as THREE from 'three';

import {length} from './numbers.js';

const axisColours = {
    x: '#d43d2a',
    y: '#2f9e44',
    z: '#2f6fd1'
};

/// The four edges of the box along `axis`, as pairs of corners.
function edgesAlong(box, axis) {
    const [first, second] = ['x', 'y', 'z'].filter((other) => other !== axis);
    return [0, 1, 2, 3].map((i) => {
        const begin = box.min.clone();
        begin[first] = i & 1 ? box.max[first] : box.min[first];
        begin[second] = i & 2 ? box.max[second] : box.min[second];
        const end = begin.clone();
        end[axis] = box.max[axis];
        return [begin, end];
    });
}

export class Overlay {
    /// `isHidden(place)` tells whether the model hides a place of the world.
    constructor(canvas, viewer, unit) {
        this.canvas = canvas;
        this.viewer = viewer;
        this.unit = unit;
        this.showsBox = true;
        this.showsAxes = true;
        this.theme = {text: '#20262c', back: '#ffffff', line: '#5c6670'};
        this.lines = new THREE.LineSegments(
            new THREE.BufferGeometry(),
            new THREE.LineBasicMaterial({transparent: true, opacity: 0.6}));
        this.lines.frustumCulled = false;
        viewer.scene.add(this.lines);
        viewer.drawn.push(() => this.draw());
        this.update();
    }

    /// After a change of the box or of what is shown.
    update() {
        const box = this.viewer.shownBox;
        const ends = ['x', 'y', 'z'].flatMap((axis) => edgesAlong(box, axis)).flat();
        this.lines.geometry.setFromPoints(ends);
        this.lines.visible = this.showsBox;
        this.lines.material.color.set(this.theme.line);
    }

    draw() {
        const ratio = Math.max(1, Math.min(3, window.devicePixelRatio || 1));
        const {width, height} = this.viewer;
        if (this.canvas.width !== Math.round(width * ratio) ||
            this.canvas.height !== Math.round(height * ratio)) {
            this.canvas.width = Math.round(width * ratio);
            this.canvas.height = Math.round(height * ratio);
        }
        const pen = this.canvas.getContext('2d');
        pen.setTransform(ratio, 0, 0, ratio, 0, 0);
        pen.clearRect(0, 0, width, height);
        this.paint(pen);
    }

    paint(pen) {
        if (this.showsBox)
            this.paintDimensions(pen);
        if (this.showsAxes)
            this.paintAxes(pen);
    }

    label(pen, text, x, y) {
        pen.font = '500 13px system-ui, sans-serif';
        pen.textAlign = 'center';
        pen.textBaseline = 'middle';
        const half = pen.measureText(text).width / 2 + 5;
        const left = Math.min(Math.max(x, half + 4), this.viewer.width - half - 4);
        const top = Math.min(Math.max(y, 14), this.viewer.height - 14);
        pen.globalAlpha = 0.85;
        pen.fillStyle = this.theme.back;
        pen.beginPath();
        pen.roundRect(left - half, top - 10, 2 * half, 20, 5);
        pen.fill();
        pen.globalAlpha = 1;
        pen.fillStyle = this.theme.text;
        pen.fillText(text, left, top + 0.5);
    }

    /// A dimension stands at the edge that is farthest from the middle of the picture of the box,
    /// below or beside it.
    paintDimensions(pen) {
        const box = this.viewer.shownBox;
        const middle = this.viewer.project(box.getCenter(new THREE.Vector3()));
        const size = this.viewer.box.getSize(new THREE.Vector3());
        for (const axis of ['x', 'y', 'z']) {
            const edges = edgesAlong(box, axis).map(([begin, end]) => {
                const a = this.viewer.project(begin);
                const b = this.viewer.project(end);
                const at = {x: (a.x + b.x) / 2, y: (a.y + b.y) / 2};
                const away = Math.hypot(at.x - middle.x, at.y - middle.y) || 1;
                const isUpright = axis === 'z';
                const worth =
                    isUpright ? away + 0.1 * (at.x - middle.x) : at.y - middle.y + 0.01 * away;
                const seen = Math.hypot(a.x - b.x, a.y - b.y);
                return {at, away, worth, seen};
            });
            const best = edges.reduce((one, other) => (other.worth > one.worth ? other : one));
            // An axis that points at the eye has no length in the picture.
            if (best.seen < 12 || !Number.isFinite(best.seen))
                continue;
            const push = 18 / best.away;
            const text = `${length(size[axis])}${this.unit ? ' ' + this.unit : ''}`;
            this.label(
                pen, text, best.at.x + (best.at.x - middle.x) * push,
                best.at.y + (best.at.y - middle.y) * push);
        }
    }

    paintAxes(pen) {
        const centre = {x: 52, y: this.viewer.height - 52};
        const arms = Object.entries(axisColours).map(([name, colour], i) => {
            const direction = new THREE.Vector3().setComponent(i, 1).applyQuaternion(
                this.viewer.camera.quaternion.clone().invert());
            return {name, colour, direction};
        });
        arms.sort((one, other) => one.direction.z - other.direction.z);
        pen.font = '600 12px system-ui, sans-serif';
        pen.textAlign = 'center';
        pen.textBaseline = 'middle';
        pen.lineWidth = 2.5;
        for (const {name, colour, direction} of arms) {
            const tip = {x: centre.x + direction.x * 28, y: centre.y - direction.y * 28};
            pen.globalAlpha = direction.z < -0.3 ? 0.55 : 1;
            pen.strokeStyle = pen.fillStyle = colour;
            pen.beginPath();
            pen.moveTo(centre.x, centre.y);
            pen.lineTo(tip.x, tip.y);
            pen.stroke();
            pen.beginPath();
            pen.arc(centre.x + direction.x * 36, centre.y - direction.y * 36, 8.5, 0, 2 * Math.PI);
            pen.fill();
            pen.fillStyle = '#ffffff';
            pen.fillText(name, centre.x + direction.x * 36, centre.y - direction.y * 36 + 0.5);
        }
        pen.globalAlpha = 1;
    }
}
