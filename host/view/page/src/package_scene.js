/// The bodies and wires of a chip package as things to draw.
import * as THREE from 'three';

import {onTop, setColour, thickLines} from './lines.js';
import {sectionColours, selectionColour} from './palette.js';
import {setOpacity, surfaceMaterial} from './surface_material.js';
import {tubesOf} from './tubes.js';

/// What encloses other things is transparent at first.
const firstOpacity = {
    'package cap': 0.25
};

/// Bodies and wires that share a row in the list and are drawn alike.
class Part {
    constructor(name, kind, colour, planes) {
        this.name = name;
        this.kind = kind;
        this.colour = colour;
        this.visible = true;
        this.opacity = firstOpacity[kind] ?? 1;
        this.planes = planes;
        this.object = new THREE.Group();
        this.isClosed = true;
    }

    /// `owners`: what the triangle or instance of a hit is of.
    addMesh(mesh, ownerOf) {
        this.mesh = mesh;
        this.geometry = mesh.geometry;
        this.material = mesh.material;
        mesh.frustumCulled = false;
        mesh.userData = {part: this, ownerOf};
        this.object.add(mesh);
    }

    makeMaterial(smooth) {
        return surfaceMaterial({colour: this.colour, smooth, planes: this.planes});
    }
}

/// The ends of all segments of the wires' paths.
function middlesOf(wires) {
    const ends = [];
    for (const {path} of wires)
        for (let i = 3; i < path.length; i += 3)
            ends.push(...path.subarray(i - 3, i + 3));
    return ends;
}

function boxPart(body, colour, planes) {
    const part = new Part(body.name, body.kind, colour, planes);
    part.bodies = [body];
    const geometry = new THREE.BoxGeometry(...body.size).translate(...body.center);
    part.addMesh(new THREE.Mesh(geometry, part.makeMaterial(false)), () => body);
    const edges = new THREE.EdgesGeometry(geometry);
    part.edges = thickLines(edges.attributes.position.array, '#20262c', 1.4, {planes});
    part.object.add(part.edges);
    return part;
}

function ballPart(balls, colour, planes) {
    const part = new Part(balls[0].name, balls[0].kind, colour, planes);
    part.bodies = balls;
    const isMany = balls.length > 1500;
    const geometry = new THREE.SphereGeometry(0.5, isMany ? 10 : 20, isMany ? 7 : 14);
    const mesh = new THREE.InstancedMesh(geometry, part.makeMaterial(true), balls.length);
    balls.forEach(
        (ball, i) => mesh.setMatrixAt(
            i,
            new THREE.Matrix4().compose(
                new THREE.Vector3(...ball.center), new THREE.Quaternion(),
                new THREE.Vector3().setScalar(ball.size[0]))));
    part.addMesh(mesh, (hit) => balls[hit.instanceId]);
    return part;
}

function wirePart(profile, wires, colour, planes) {
    const name = profile.name ?? `profile ${profile.number}`;
    const part = new Part(name, 'bond wires', colour, planes);
    part.wires = wires;
    const segments = wires.reduce((sum, wire) => sum + wire.points, 0);
    const {geometry, wireOfTriangle} = tubesOf(wires, segments > 20000 ? 6 : 10);
    part.addMesh(
        new THREE.Mesh(geometry, part.makeMaterial(true)),
        (hit) => wires[wireOfTriangle[hit.faceIndex]]);
    // From far away a tube is thinner than a pixel; its middle line is not.
    part.object.add(thickLines(middlesOf(wires), colour, 1, {planes}));
    return part;
}

/// The elements of `list` that `keyOf` has the same text for, in the order of the first ones.
function grouped(list, keyOf) {
    const groups = new Map();
    for (const element of list) {
        const key = keyOf(element);
        if (!groups.has(key))
            groups.set(key, []);
        groups.get(key).push(element);
    }
    return [...groups.values()];
}

export class PackageScene {
    constructor(data, planes) {
        this.data = data;
        this.planes = planes;
        this.object = new THREE.Group();
        // A design without colours gets those of the sections, one for each row of the list.
        const colourOf = (colour) =>
            colour ?? sectionColours[this.parts.length % sectionColours.length];
        this.parts = [];
        for (const body of data.bodies.filter((each) => !each.isBall))
            this.parts.push(boxPart(body, colourOf(body.colour), planes));
        const balls = data.bodies.filter((each) => each.isBall);
        for (const group of grouped(balls, (ball) => `${ball.colour} ${ball.name}`))
            this.parts.push(ballPart(group, colourOf(group[0].colour), planes));
        for (const profile of data.profiles) {
            const wires = data.wires.filter((wire) => wire.profile === profile.number);
            if (wires.length > 0)
                this.parts.push(wirePart(profile, wires, colourOf(profile.colour), planes));
        }
        this.selection = new THREE.Group();
        this.object.add(...this.parts.map((part) => part.object), this.selection);
        this.settings = {features: true, edgeColour: '#20262c'};
        this.update();
    }

    update() {
        for (const part of this.parts) {
            part.object.visible = part.visible && part.opacity > 0;
            setOpacity(part.material, part.opacity);
            // Bodies that others lie in are drawn after those, or they would hide them.
            part.mesh.renderOrder = part.opacity < 1 ? 10 : 0;
            if (part.edges !== undefined) {
                part.edges.visible = this.settings.features;
                setColour(part.edges, this.settings.edgeColour);
            }
        }
    }

    get boxOfShown() {
        const box = new THREE.Box3();
        for (const part of this.parts)
            if (part.object.visible)
                for (const thing of part.bodies ?? part.wires)
                    box.union(boxOf(thing));
        return box;
    }

    pick(ray) {
        const caster = new THREE.Raycaster(ray.origin, ray.direction);
        const shown = this.parts.filter((part) => part.object.visible).map((part) => part.mesh);
        const plane = this.planes[0] ?? null;
        const hits = caster.intersectObjects(shown, false)
                         .filter((hit) => plane === null || plane.distanceToPoint(hit.point) >= 0);
        // What is all but transparent is looked through, unless there is nothing else.
        const hit = hits.find((each) => each.object.userData.part.opacity >= 0.5) ?? hits[0];
        if (hit === undefined)
            return null;
        const {part, ownerOf} = hit.object.userData;
        return {part, thing: ownerOf(hit), place: hit.point};
    }

    select(hit) {
        this.selection.clear();
        if (hit === null)
            return;
        const box = boxOf(hit.thing);
        const size = box.getSize(new THREE.Vector3());
        const frame = new THREE.EdgesGeometry(
            new THREE.BoxGeometry(size.x, size.y, size.z)
                .translate(...box.getCenter(new THREE.Vector3()).toArray()));
        const lines = thickLines(frame.attributes.position.array, selectionColour, 2.5, onTop);
        lines.renderOrder = 900;
        this.selection.add(lines);
    }

    /// Bodies have few faces.
    get shownTriangles() { return 0; }

    /// Findings of packages are of lines of the file, not of places.
    showFinding() { return null; }
}

/// The box of a body or of a wire.
export function boxOf(thing) {
    if (thing.path === undefined)
        return new THREE.Box3().setFromCenterAndSize(
            new THREE.Vector3(...thing.center), new THREE.Vector3(...thing.size));
    return new THREE.Box3().setFromArray(thing.path).expandByScalar(thing.diameter / 2);
}
