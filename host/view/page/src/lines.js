/// Lines of a width in pixels.
import { LineMaterial } from 'three/examples/jsm/lines/LineMaterial.js';
import { LineSegments2 } from 'three/examples/jsm/lines/LineSegments2.js';
import { LineSegmentsGeometry } from 'three/examples/jsm/lines/LineSegmentsGeometry.js';

/// Segments; `ends` has x, y, z of the two ends of each.
export function thickLines(ends, colour, width, options = {}) {
    const lines = new LineSegments2(
        new LineSegmentsGeometry().setPositions(ends),
        new LineMaterial({ color: colour, linewidth: width, ...options }));
    lines.frustumCulled = false;
    return lines;
}

/// The same between nodes, of which `pairs` has the rows in `places`.
export function thickLinesBetween(pairs, places, colour, width, options) {
    const ends = new Float32Array(3 * pairs.length);
    for (let i = 0; i < pairs.length; ++i)
        for (let axis = 0; axis < 3; ++axis)
            ends[3 * i + axis] = places[3 * pairs[i] + axis];
    return thickLines(ends, colour, width, options);
}

/// What marks something is drawn over everything.
export const onTop = { depthTest: false, transparent: true };
