/// The sections of a mesh as things to draw, and what a finding or a pick marks of it.
import * as THREE from 'three';

import {cellsOf, coarseTriangles} from './coarse.js';
import {eachFace, edgesOf, edgesOfElement, Triangles} from './faces.js';
import {onTop, setColour, thickLinesBetween} from './lines.js';
import {markColour, selectionColour, styleOf} from './palette.js';
import {nearestTriangle} from './ray.js';
import {setOpacity, surfaceMaterial} from './surface_material.js';

/// Elements, drawn on top of everything as faces and edges.
class Marks {
    constructor(nodes, colour) {
        this.nodes = nodes;
        this.colour = colour;
        this.object = new THREE.Group();
        this.object.renderOrder = 900;
    }

    clear() {
        for (const child of this.object.children) {
            child.geometry.dispose();
            child.material.dispose();
        }
        this.object.clear();
        this.box = new THREE.Box3();
    }

    /// `groups` in whole, and nodes in the rows `points`.
    show(groups, points, opacity) {
        this.clear();
        const pairs = [];
        for (const group of groups) {
            for (let row = 0; row < group.elements; ++row)
                pairs.push(...edgesOfElement(group, row));
            for (const node of group.nodes)
                this.extend(node);
        }
        const triangles = new Triangles(groups);
        this.addFaces(triangles, opacity);
        if (pairs.length > 0) {
            const lines = thickLinesBetween(pairs, this.nodes.places, this.colour, 2.5, onTop);
            lines.renderOrder = 902;
            this.object.add(lines);
        }
        points.forEach((node) => this.extend(node));
        if (points.length > 0)
            this.addPoints(points);
    }

    extend(node) {
        this.box.expandByPoint(new THREE.Vector3().fromArray(this.nodes.places, 3 * node));
    }

    addFaces(triangles, opacity) {
        if (triangles.count === 0)
            return;
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', this.nodes.attribute);
        geometry.setIndex(new THREE.BufferAttribute(triangles.nodes, 1));
        geometry.setDrawRange(0, 3 * triangles.count);
        const material = surfaceMaterial({colour: this.colour});
        setOpacity(material, opacity);
        material.depthTest = false;
        const mesh = new THREE.Mesh(geometry, material);
        mesh.frustumCulled = false;
        mesh.renderOrder = 901;
        this.object.add(mesh);
    }

    addPoints(points) {
        const geometry = new THREE.BufferGeometry();
        const places = new Float32Array(3 * points.length);
        points.forEach(
            (node, i) => places.set(this.nodes.places.subarray(3 * node, 3 * node + 3), 3 * i));
        geometry.setAttribute('position', new THREE.BufferAttribute(places, 3));
        const material = new THREE.PointsMaterial({
            color: this.colour,
            size: 12,
            sizeAttenuation: false,
            map: roundPoint(),
            alphaTest: 0.5,
            depthTest: false,
            transparent: true,
        });
        const cloud = new THREE.Points(geometry, material);
        cloud.frustumCulled = false;
        cloud.renderOrder = 903;
        this.object.add(cloud);
    }
}

function roundPoint() {
    const canvas = document.createElement('canvas');
    canvas.width = canvas.height = 32;
    const pen = canvas.getContext('2d');
    pen.arc(16, 16, 15, 0, 2 * Math.PI);
    pen.fillStyle = 'white';
    pen.fill();
    return new THREE.CanvasTexture(canvas);
}

/// Faces of loads and surfaces name corners alone: where they lie on a curved face of a solid, they
/// take its other nodes as well. `curved` has those faces by their corners.
function bent(group, curved, kinds) {
    const {shape, nodes, elements} = group;
    const wide = kinds.find((kind) => kind.dimension === 2 && kind.nodes === 2 * shape.nodes);
    if (curved.size === 0 || wide === undefined)
        return [group];
    const faces = [];
    for (let row = 0; row < elements; ++row)
        faces.push(curved.get(keyOf(nodes.subarray(row * shape.nodes, (row + 1) * shape.nodes))));
    // A section with faces of both kinds stays as it is.
    if (faces.some((face) => face === undefined))
        return [group];
    return [{...group, shape: {...wide, faces: []}, nodes: Int32Array.from(faces.flat())}];
}

const keyOf = (corners) => [...corners].sort((a, b) => a - b).join();

function curvedFacesOf(sections) {
    const curved = new Map();
    for (const section of sections)
        for (const group of section.groups)
            if (group.shape.dimension === 3)
                eachFace(group, group.outer, (nodes) => {
                    if (nodes.length === 6 || nodes.length === 8)
                        curved.set(keyOf(nodes.subarray(0, nodes.length / 2)), [...nodes]);
                });
    return curved;
}

class SectionView {
    constructor(section, style, scene) {
        this.section = section;
        this.style = style;
        this.scene = scene;
        this.visible = true;
        this.object = new THREE.Group();
        const inFront = section.origin === 'load' || section.origin === 'surface';
        this.isClosed = section.origin === 'solid';
        this.counters = [];  // what the cutting plane draws with the same geometry
        let faceGroups = section.groups.filter((group) => group.shape.dimension > 1);
        if (inFront)
            faceGroups = faceGroups.flatMap((group) => bent(group, scene.curved, scene.data.kinds));
        this.triangles = new Triangles(faceGroups);
        this.faceGroups = faceGroups;
        this.material = surfaceMaterial({...style, planes: scene.planes, front: inFront ? 1 : 0});
        this.geometry = new THREE.BufferGeometry();
        this.geometry.setAttribute('position', scene.nodes.attribute);
        this.geometry.setIndex(new THREE.BufferAttribute(this.triangles.nodes, 1));
        this.mesh = new THREE.Mesh(this.geometry, this.material);
        this.mesh.frustumCulled = false;
        this.object.add(this.mesh);
        this.addLines();
    }

    /// Elements that are lines.
    addLines() {
        const pairs = this.section.groups.filter((group) => group.shape.dimension === 1)
                          .flatMap(
                              (group) => [...Array(group.elements).keys()].flatMap(
                                  (row) => edgesOfElement(group, row)));
        if (pairs.length > 0)
            this.object.add(thickLinesBetween(
                pairs, this.scene.nodes.places, this.style.colour, 3, {planes: this.scene.planes}));
    }

    /// Edges are made when they are wanted first.
    showEdges(kind, isWanted, colour) {
        this.edges ??= {features: null, all: null};
        if (isWanted && this.edges[kind] === null) {
            this.pairs ??= edgesOf(this.faceGroups, this.scene.nodes.places);
            this.edges[kind] =
                kind === 'features' ? this.makeFeatures(colour) : this.makeAll(colour);
            this.object.add(this.edges[kind]);
        }
        if (this.edges[kind] === null)
            return;
        this.edges[kind].visible = isWanted;
        setColour(this.edges[kind], colour);
    }

    makeFeatures(colour) {
        return thickLinesBetween(
            this.pairs.features, this.scene.nodes.places, colour, 1.6, {planes: this.scene.planes});
    }

    makeAll(colour) {
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', this.scene.nodes.attribute);
        geometry.setIndex(new THREE.BufferAttribute(this.pairs.all, 1));
        const lines = new THREE.LineSegments(geometry, new THREE.LineBasicMaterial({
            color: colour,
            transparent: true,
            opacity: 0.45,
            depthWrite: false,
            clippingPlanes: this.scene.planes,
        }));
        lines.frustumCulled = false;
        return lines;
    }

    /// Faces that border on other sections are drawn where something may uncover them.
    setRange(withBetween) {
        const count = withBetween ? this.triangles.count : this.triangles.outerCount;
        this.geometry.setDrawRange(0, 3 * count);
        this.shownTriangles = count;
    }

    /// With fewer faces; made anew when others are shown than before.
    get coarseGeometry() {
        if (this.coarse?.userData.count !== this.shownTriangles) {
            this.coarse?.dispose();
            this.coarse = new THREE.BufferGeometry();
            this.coarse.userData.count = this.shownTriangles;
            this.coarse.setAttribute('position', this.scene.nodes.attribute);
            this.coarse.setIndex(new THREE.BufferAttribute(
                coarseTriangles(this.triangles.nodes, this.shownTriangles, this.scene.cells), 1));
        }
        return this.coarse;
    }

    /// A picture of a movement has fewer faces, and no edges but those of features.
    setMoving(isMoving) {
        const geometry = isMoving ? this.coarseGeometry : this.geometry;
        for (const mesh of [this.mesh, ...this.counters])
            mesh.geometry = geometry;
        if (this.edges?.all)
            this.edges.all.visible = !isMoving && this.scene.settings.all;
    }
}

export class MeshScene {
    /// `data` as read by data.js; `planes`: the list that the cutting plane is in when it cuts.
    constructor(data, planes) {
        this.data = data;
        this.planes = planes;
        this.nodes = data.nodes;
        this.nodes.attribute = new THREE.BufferAttribute(this.nodes.places, 3);
        this.object = new THREE.Group();
        const isOnFaces =
            data.sections.some(({origin}) => origin === 'load' || origin === 'surface');
        this.curved = isOnFaces ? curvedFacesOf(data.sections) : new Map();
        const indices = {};
        this.parts = data.sections.map((section) => {
            const table =
                section.origin === 'load' || section.origin === 'surface' ? section.origin : 'mesh';
            indices[table] = (indices[table] ?? -1) + 1;
            return new SectionView(section, styleOf(section.origin, indices[table]), this);
        });
        for (const part of this.parts)
            this.object.add(part.object);
        this.marks = new Marks(this.nodes, markColour);
        this.selection = new Marks(this.nodes, selectionColour);
        this.object.add(this.marks.object, this.selection.object);
        this.settings = {features: true, all: false, edgeColour: '#20262c', opacity: 1};
        this.update();
    }

    update() {
        const {features, all, edgeColour, opacity} = this.settings;
        const isWhole =
            this.planes.length === 0 && opacity === 1 && this.parts.every((part) => part.visible);
        for (const part of this.parts) {
            part.object.visible = part.visible;
            part.setRange(!isWhole);
            setOpacity(part.material, opacity);
            if (part.visible) {
                part.showEdges('features', features, edgeColour);
                part.showEdges('all', all, edgeColour);
            }
        }
    }

    get shownTriangles() {
        return this.parts.reduce((sum, part) => sum + (part.visible ? part.shownTriangles : 0), 0);
    }

    /// `most` triangles are drawn while the picture moves, more or less.
    setMoving(isMoving, most) {
        if (isMoving)
            this.cells ??= this.cellsFor(most);
        for (const part of this.parts)
            part.setMoving(isMoving);
    }

    /// On a surface, the number of triangles grows with the square of that of the cells along a
    /// side.
    cellsFor(most) {
        const first = 64;
        const cells = cellsOf(this.nodes.places, this.data.box, first);
        const count = this.parts.reduce(
            (sum, {triangles}) =>
                sum + coarseTriangles(triangles.nodes, triangles.outerCount, cells).length / 3,
            0);
        return cellsOf(
            this.nodes.places, this.data.box,
            Math.max(8, first * Math.min(2, Math.sqrt(most / count))));
    }

    /// The box of what is shown; that of all where nothing is.
    get boxOfShown() {
        const box = new THREE.Box3();
        for (const part of this.parts)
            if (part.visible)
                for (const group of part.section.groups)
                    for (const node of group.nodes)
                        box.expandByPoint(
                            new THREE.Vector3().fromArray(this.nodes.places, 3 * node));
        return box;
    }

    /// What the ray meets first of what is shown; null where that is nothing.
    pick(ray) {
        let nearest = null;
        const plane = this.planes[0] ?? null;
        // Where the ray comes through the cutting plane to what is shown.
        const cut = plane !== null && plane.normal.dot(ray.direction) > 0 ?
            ray.distanceToPlane(plane) :
            null;
        for (const part of this.parts) {
            if (!part.visible)
                continue;
            const hit = nearestTriangle(
                ray, part.triangles.nodes, part.shownTriangles, this.nodes.places, plane);
            if (hit === null)
                continue;
            const isCut = part.isClosed && hit.isBack && cut !== null && cut < hit.distance;
            // Faces of loads and surfaces lie on those of elements, and are drawn in front of them.
            const distance = isCut ? cut : hit.distance * (part.isClosed ? 1 : 1 - 1e-5);
            if (nearest === null || distance < nearest.distance)
                nearest = {...hit, distance, part, isCut};
        }
        if (nearest === null)
            return null;
        return nearest.isCut ? {...nearest, place: ray.at(cut, new THREE.Vector3())} :
                               {...nearest, ...nearest.part.triangles.ownerOf(nearest.row)};
    }

    select(hit) {
        if (hit === null || hit.isCut) {
            this.selection.clear();
            return;
        }
        this.selection.show([oneElement(hit.group, hit.element)], [], 0.35);
    }

    /// The box of what the finding marks; null without one.
    showFinding(finding) {
        if (finding === null) {
            this.marks.clear();
            this.settings.opacity = 1;
        } else {
            this.marks.show(finding.groups, [...finding.points], 0.6);
            this.settings.opacity = 0.16;
        }
        this.update();
        return finding === null ? null : this.marks.box;
    }
}

/// The group of this element alone, with all its faces.
export function oneElement(group, row) {
    const {shape} = group;
    const all = (1 << Math.max(1, shape.faces.length)) - 1;
    return {
        shape,
        elements: 1,
        nodes: group.nodes.subarray(row * shape.nodes, (row + 1) * shape.nodes),
        outer: Uint8Array.of(all),
        between: Uint8Array.of(0),
    };
}
