/// The picture: renderer, the two cameras, turning, fitting and flying, and drawing when needed.
import * as THREE from 'three';
import {OrbitControls} from 'three/examples/jsm/controls/OrbitControls.js';

import {halfPictureUniform} from './lines.js';
import {pixelUniform} from './surface_material.js';

/// Where the eye is for each standard view, seen from the middle; z points up.
export const directions = {
    iso: [1, -1.4, 0.9],
    front: [0, -1, 0],
    back: [0, 1, 0],
    left: [-1, 0, 0],
    right: [1, 0, 0],
    // Not quite above, so that up stays known.
    top: [0, -1e-4, 1],
    bottom: [0, -1e-4, -1],
};
const fieldOfView = 35;
const slowFrame = 50;  // milliseconds

function isSoftware() {
    const context = document.createElement('canvas').getContext('webgl2');
    if (context === null)
        return false;
    const names = context.getExtension('WEBGL_debug_renderer_info');
    const name = names ? context.getParameter(names.UNMASKED_RENDERER_WEBGL) : '';
    context.getExtension('WEBGL_lose_context')?.loseContext();
    return /swiftshader|llvmpipe|software|basic render/i.test(name);
}

/// The eight corners of a box.
export const cornersOf = (box) => [0, 1, 2, 3, 4, 5, 6, 7].map(
    (i) => new THREE.Vector3(
        i & 1 ? box.max.x : box.min.x, i & 2 ? box.max.y : box.min.y,
        i & 4 ? box.max.z : box.min.z));

export class Viewer {
    /// `box` is that of all that can be shown. Throws where the browser has no WebGL 2.
    constructor(canvas, box) {
        this.canvas = canvas;
        this.isSoftware = isSoftware();
        this.renderer = new THREE.WebGLRenderer({
            canvas,
            antialias: !this.isSoftware,  // where that is slow, a picture at rest has more pixels
            alpha: false,
            stencil: true,
        });
        this.renderer.localClippingEnabled = true;
        this.renderer.outputColorSpace =
            THREE.LinearSRGBColorSpace;  // colours are as they are named
        this.scene = new THREE.Scene();
        this.model = new THREE.Group();
        this.scene.add(this.model);
        this.box = box;
        this.reach = box;  // holds all that may be drawn
        this.isCoarse = false;
        this.shown = {shownTriangles: 0};  // the scene in `model`
        this.cameras = {
            perspective: new THREE.PerspectiveCamera(fieldOfView),
            parallel: new THREE.OrthographicCamera(),
        };
        this.camera = this.cameras.perspective;
        for (const camera of Object.values(this.cameras))
            camera.up.set(0, 0, 1);
        this.controls = new OrbitControls(this.camera, canvas);
        this.controls.zoomToCursor = true;
        this.controls.screenSpacePanning = true;
        this.controls.addEventListener('change', () => this.move());
        this.controls.addEventListener('start', () => (this.fitted = null));
        this.fitted = null;  // the direction from which all is shown until somebody turns it
        this.drawn = [];     // called after each drawing
        this.frames = 0;
        this.movingRatio = 0;
        this.lastMove = -Infinity;
        new ResizeObserver(() => this.resize()).observe(canvas.parentElement);
        this.resize();
    }

    get isParallel() { return this.camera.isOrthographicCamera === true; }

    /// `box` as it is shown: stretched along z.
    stretched(box) {
        const shown = box.clone();
        shown.min.z *= this.model.scale.z;
        shown.max.z *= this.model.scale.z;
        return shown;
    }

    get shownBox() { return this.stretched(this.box); }

    resize() {
        const {clientWidth: width, clientHeight: height} = this.canvas.parentElement;
        this.width = Math.max(1, width);
        this.height = Math.max(1, height);
        this.ratio = 0;
        this.cameras.perspective.aspect = this.width / this.height;
        if (this.fitted)
            this.place(this.poseFor(this.shownBox, this.fitted));
        this.draw();
    }

    /// Draws soon.
    draw() {
        this.pending ??= requestAnimationFrame(() => {
            this.pending = undefined;
            this.drawNow();
        });
    }

    /// Draws soon, as one picture of a movement.
    move() {
        const now = performance.now();
        const pause = now - this.lastMove;
        this.lastMove = now;
        const full = Math.min(window.devicePixelRatio || 1, 2);
        this.movingRatio ||= this.isSoftware ? 1 : full;
        if (pause > slowFrame && pause < 500)
            this.movingRatio = Math.max(0.5, this.movingRatio * 0.9);
        else if (pause < slowFrame / 2)
            this.movingRatio = Math.min(this.isSoftware ? 1 : full, this.movingRatio * 1.05);
        clearTimeout(this.restTimer);
        this.restTimer = setTimeout(() => this.draw(), 200);
        this.draw();
    }

    drawNow() {
        const isMoving = performance.now() - this.lastMove < 150;
        const full = Math.min(window.devicePixelRatio || 1, 3);
        const ratio = isMoving ? this.movingRatio : this.isSoftware ? Math.max(2, full) : full;
        if (ratio !== this.ratio) {
            this.ratio = ratio;
            this.renderer.setPixelRatio(ratio);
            this.renderer.setSize(this.width, this.height, false);
        }
        pixelUniform.value = ratio;
        halfPictureUniform.value.set(this.width / 2, this.height / 2);
        this.setMoving(isMoving);
        this.setDepthRange();
        this.renderer.render(this.scene, this.camera);
        ++this.frames;
        for (const listener of this.drawn)
            listener();
    }

    /// More faces than can be drawn 20 times a second are fewer while the picture moves.
    setMoving(isMoving) {
        const most = this.isSoftware ? 25e3 : 2e6;
        const isCoarse = isMoving && this.shown.shownTriangles > most;
        if (isCoarse === this.isCoarse)
            return;
        this.isCoarse = isCoarse;
        this.shown.setMoving(isCoarse, most);
    }

    /// The depth range holds what is shown and no more: the buffer's digits are few.
    setDepthRange() {
        const sphere = this.stretched(this.reach).getBoundingSphere(new THREE.Sphere());
        const radius = sphere.radius * 1.2 || 1;
        const towards = this.camera.getWorldDirection(new THREE.Vector3());
        const middle = sphere.center.clone().sub(this.camera.position).dot(towards);
        this.camera.far = middle + radius;
        if (this.isParallel) {
            this.camera.near = middle - radius;
            const half = this.parallelHeight / 2;
            const aspect = this.width / this.height;
            Object.assign(
                this.camera,
                {top: half, bottom: -half, left: -half * aspect, right: half * aspect});
        } else {
            this.camera.near = Math.max(middle - radius, radius / 1000);
            this.camera.far = Math.max(this.camera.far, this.camera.near * 2);
        }
        this.camera.updateProjectionMatrix();
    }

    /// The eye such that `box` just fills the picture, from `direction`. Its middle is that of the
    /// picture where it `isTarget`; else the box has the same margin on both sides.
    poseFor(box, direction, isTarget = false) {
        const middle = box.getCenter(new THREE.Vector3());
        const towards = new THREE.Vector3(...direction).normalize();
        const right = new THREE.Vector3(0, 0, 1).cross(towards).normalize();
        const up = towards.clone().cross(right);
        const slope =
            Math.tan(THREE.MathUtils.degToRad(fieldOfView / 2)) * 0.86;  // leaves a margin
        // The picture's four sides are planes through the eye, each pushed out to the corners.
        const fitAlong = (axis, sideSlope) => {
            let high = -Infinity;
            let low = Infinity;
            for (const corner of cornersOf(box)) {
                const offset = corner.sub(middle);
                const depth = this.isParallel ? 0 : sideSlope * offset.dot(towards);
                high = Math.max(high, offset.dot(axis) + depth);
                low = Math.min(low, offset.dot(axis) - depth);
            }
            const extent = isTarget ? 2 * Math.max(high, -low) : high - low;
            return {
                shift: isTarget ? 0 : (high + low) / 2,
                extent,
                distance: extent / 2 / sideSlope
            };
        };
        const upright = fitAlong(up, slope);
        const across = fitAlong(right, slope * this.width / this.height);
        const distance = Math.max(upright.distance, across.distance) || 1;
        const target =
            middle.addScaledVector(up, upright.shift).addScaledVector(right, across.shift);
        return {
            target,
            position: target.clone().addScaledVector(towards, distance),
            height: Math.max(upright.extent, across.extent * this.height / this.width) / 0.86 || 1,
        };
    }

    get direction() {
        return this.camera.position.clone().sub(this.controls.target).normalize().toArray();
    }

    fit(direction = this.direction) {
        this.flyTo(this.poseFor(this.shownBox, direction));
        this.fitted = direction;
    }

    /// What one sees of the world from top to bottom, in the depth of the target.
    get visibleHeight() {
        if (this.isParallel)
            return this.parallelHeight / this.camera.zoom;
        const distance = this.camera.position.distanceTo(this.controls.target);
        return 2 * distance * Math.tan(THREE.MathUtils.degToRad(fieldOfView / 2));
    }

    place({position, target, height}) {
        this.camera.position.copy(position);
        this.controls.target.copy(target);
        if (this.isParallel)
            this.parallelHeight = height;
        this.camera.zoom = 1;
        this.controls.update();
        this.draw();
    }

    flyTo(end) {
        this.fitted = null;
        cancelAnimationFrame(this.flight);
        const isStill = !this.animates || matchMedia('(prefers-reduced-motion: reduce)').matches;
        if (isStill) {
            this.place(end);
            return;
        }
        const begin = {
            position: this.camera.position.clone(),
            target: this.controls.target.clone(),
            height: this.visibleHeight,
        };
        const started = performance.now();
        const step = () => {
            const time = Math.min(1, (performance.now() - started) / 450);
            const part = time * time * (3 - 2 * time);
            this.place({
                position: begin.position.clone().lerp(end.position, part),
                target: begin.target.clone().lerp(end.target, part),
                height: begin.height + (end.height - begin.height) * part,
            });
            this.move();
            if (time < 1)
                this.flight = requestAnimationFrame(step);
        };
        step();
    }

    /// Looks at `box` from where the eye is, with surroundings of `margin` times its size.
    flyToBox(box, margin) {
        const size = box.getSize(new THREE.Vector3()).length() ||
            this.shownBox.getSize(new THREE.Vector3()).length() / 50;
        const middle = box.getCenter(new THREE.Vector3());
        const around = new THREE.Box3().setFromCenterAndSize(
            middle, new THREE.Vector3(1, 1, 1).multiplyScalar(size * margin / Math.sqrt(3)));
        this.flyTo(this.poseFor(around, this.direction, true));
    }

    /// Switches between perspective and parallel projection; the target keeps its size.
    setParallel(isParallel) {
        if (isParallel === this.isParallel)
            return;
        const height = this.visibleHeight;
        const {position, quaternion} = this.camera;
        const next = isParallel ? this.cameras.parallel : this.cameras.perspective;
        next.quaternion.copy(quaternion);
        next.position.copy(position);
        if (isParallel) {
            this.parallelHeight = height;
        } else {
            const distance = height / 2 / Math.tan(THREE.MathUtils.degToRad(fieldOfView / 2));
            const away = position.clone().sub(this.controls.target).setLength(distance);
            next.position.copy(this.controls.target).add(away);
        }
        next.zoom = 1;
        this.camera = next;
        this.controls.object = next;
        this.controls.update();
        this.draw();
    }

    /// Turns about the vertical axis through the target.
    turn(angle, tilt = 0) {
        this.fitted = null;
        const offset = this.camera.position.clone().sub(this.controls.target);
        const spherical =
            new THREE.Spherical().setFromCartesianCoords(offset.x, offset.z, -offset.y);
        spherical.theta += angle;
        spherical.phi = THREE.MathUtils.clamp(spherical.phi + tilt, 1e-4, Math.PI - 1e-4);
        const turned = new THREE.Vector3().setFromSpherical(spherical);
        this.camera.position.copy(this.controls.target)
            .add(new THREE.Vector3(turned.x, -turned.z, turned.y));
        this.controls.update();
        this.move();
    }

    zoom(factor) {
        this.fitted = null;
        const offset = this.camera.position.clone().sub(this.controls.target);
        this.camera.position.copy(this.controls.target).addScaledVector(offset, 1 / factor);
        if (this.isParallel)
            this.parallelHeight /= factor;
        this.controls.update();
        this.move();
    }

    /// A place of the world in pixels of the page, from the top left of the picture.
    project(place) {
        const point = place.clone().project(this.camera);
        return {
            x: (point.x + 1) / 2 * this.width,
            y: (1 - point.y) / 2 * this.height,
            depth: point.z
        };
    }

    /// The ray through a pixel.
    rayThrough(x, y) {
        const caster = new THREE.Raycaster();
        caster.setFromCamera(
            new THREE.Vector2(x / this.width * 2 - 1, 1 - y / this.height * 2), this.camera);
        return caster.ray;
    }
}
