/// Wires as tubes of their true diameter.
import * as THREE from 'three';

/// The points of a path without those at the place of the one before.
function pointsOf(path) {
    const points = [];
    for (let i = 0; i + 2 < path.length; i += 3) {
        const point = new THREE.Vector3(path[i], path[i + 1], path[i + 2]);
        if (points.length === 0 || points[points.length - 1].distanceTo(point) > 0)
            points.push(point);
    }
    return points;
}

/// At each point two directions across the tube, which turn no more than the path does, and the
/// stretch that keeps the tube's diameter around a bend.
function framesOf(points) {
    const along = points.slice(1).map((point, i) => point.clone().sub(points[i]).normalize());
    let across = new THREE.Vector3(0, 0, 1).cross(along[0]);
    if (across.lengthSq() < 1e-6)
        across = new THREE.Vector3(1, 0, 0).cross(along[0]);
    across.normalize();
    return points.map((point, i) => {
        const before = along[Math.max(0, i - 1)];
        const after = along[Math.min(along.length - 1, i)];
        const middle = before.clone().add(after);
        if (middle.lengthSq() < 1e-6)
            middle.copy(after);
        middle.normalize();
        across.addScaledVector(middle, -across.dot(middle)).normalize();
        const other = middle.clone().cross(across);
        const bend = after.clone().sub(before);
        // Acute bends would make long spikes.
        const stretch = Math.min(2, 1 / Math.max(0.1, middle.dot(after)));
        return {
            point,
            across: across.clone(),
            other,
            bend: bend.lengthSq() > 0 ? bend.normalize() : bend,
            stretch
        };
    });
}

/// One geometry of all `wires`; `wireOfTriangle` tells which wire a triangle is of.
export function tubesOf(wires, sides) {
    const places = [];
    const normals = [];
    const nodes = [];
    const wireOfTriangle = [];
    const addTriangle = (wire, ...corners) => {
        nodes.push(...corners);
        wireOfTriangle.push(wire);
    };
    wires.forEach((wire, index) => {
        const points = pointsOf(wire.path);
        if (points.length < 2)
            return;
        const first = places.length / 3;
        const frames = framesOf(points);
        for (const {point, across, other, bend, stretch} of frames)
            for (let side = 0; side < sides; ++side) {
                const angle = 2 * Math.PI * side / sides;
                const out = across.clone()
                                .multiplyScalar(Math.cos(angle))
                                .addScaledVector(other, Math.sin(angle));
                normals.push(out.x, out.y, out.z);
                out.addScaledVector(bend, (stretch - 1) * out.dot(bend))
                    .multiplyScalar(wire.diameter / 2)
                    .add(point);
                places.push(out.x, out.y, out.z);
            }
        for (let ring = 0; ring + 1 < frames.length; ++ring)
            for (let side = 0; side < sides; ++side) {
                const a = first + ring * sides + side;
                const b = first + ring * sides + (side + 1) % sides;
                addTriangle(index, a, b, b + sides);
                addTriangle(index, a, b + sides, a + sides);
            }
        const last = first + (frames.length - 1) * sides;
        for (let side = 1; side + 1 < sides; ++side) {
            addTriangle(index, first, first + side + 1, first + side);
            addTriangle(index, last, last + side, last + side + 1);
        }
    });
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute('position', new THREE.Float32BufferAttribute(places, 3));
    geometry.setAttribute('normal', new THREE.Float32BufferAttribute(normals, 3));
    geometry.setIndex(nodes);
    return {geometry, wireOfTriangle};
}
