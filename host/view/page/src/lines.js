/// Lines of a width in pixels.
import * as THREE from 'three';

import {partsOf} from './palette.js';

// Each segment is two triangles, whose corners go aside from its ends on the screen. Instances of
// one quadrilateral would be less data, but renderers in software draw them one by one.
const vertexShader = /* glsl */ `
    #include <clipping_planes_pars_vertex>
    attribute vec3 other;
    attribute float side;
    uniform float width;
    uniform vec2 halfPicture;
    void main() {
        vec4 mvPosition = modelViewMatrix * vec4(position, 1.0);
        vec4 here = projectionMatrix * mvPosition;
        vec4 there = projectionMatrix * modelViewMatrix * vec4(other, 1.0);
        // An end behind the eye has no place on the screen: the one before it decides.
        vec2 a = here.xy / max(here.w, 1e-6) * halfPicture;
        vec2 b = there.xy / max(there.w, 1e-6) * halfPicture;
        vec2 along = a == b ? vec2(1.0, 0.0) : normalize(b - a);
        vec2 aside = vec2(-along.y, along.x) * side * 0.5 * width;
        here.xy += aside / halfPicture * here.w;
        gl_Position = here;
        #include <clipping_planes_vertex>
    }
`;
const fragmentShader = /* glsl */ `
    #include <clipping_planes_pars_fragment>
    uniform vec3 colour;
    void main() {
        #include <clipping_planes_fragment>
        gl_FragColor = vec4(colour, 1.0);
    }
`;

/// Half of the picture's width and height in pixels of the page; one for all lines.
export const halfPictureUniform = {
    value: new THREE.Vector2(1, 1)
};

/// Segments; `ends` has x, y, z of the two ends of each. `planes` cut them.
export function thickLines(ends, colour, width, {planes = null, ...options} = {}) {
    const segments = ends.length / 6;
    const places = new Float32Array(12 * segments);
    const others = new Float32Array(12 * segments);
    const sides = new Float32Array(4 * segments);
    const corners = new Uint32Array(6 * segments);
    for (let i = 0; i < segments; ++i) {
        const first = ends.slice(6 * i, 6 * i + 3);
        const second = ends.slice(6 * i + 3, 6 * i + 6);
        for (let corner = 0; corner < 4; ++corner) {
            places.set(corner < 2 ? first : second, 12 * i + 3 * corner);
            others.set(corner < 2 ? second : first, 12 * i + 3 * corner);
        }
        sides.set([1, -1, 1, -1], 4 * i);  // seen from the other end, left is right
        corners.set([0, 1, 3, 1, 2, 3].map((corner) => 4 * i + corner), 6 * i);
    }
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute('position', new THREE.BufferAttribute(places, 3));
    geometry.setAttribute('other', new THREE.BufferAttribute(others, 3));
    geometry.setAttribute('side', new THREE.BufferAttribute(sides, 1));
    geometry.setIndex(new THREE.BufferAttribute(corners, 1));
    const material = new THREE.ShaderMaterial({
        vertexShader,
        fragmentShader,
        uniforms: {
            colour: {value: new THREE.Vector3(...partsOf(colour))},
            width: {value: width},
            halfPicture: halfPictureUniform,
        },
        side: THREE.DoubleSide,
        clipping: true,
        clippingPlanes: planes,
        ...options,
    });
    const lines = new THREE.Mesh(geometry, material);
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

export function setColour(lines, colour) {
    if (lines.material.uniforms)
        lines.material.uniforms.colour.value.set(...partsOf(colour));
    else
        lines.material.color.set(colour);
}

/// What marks something is drawn over everything.
export const onTop = {
    depthTest: false,
    transparent: true
};
