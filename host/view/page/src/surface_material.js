/// How faces are drawn: lit from beside the eye, one colour to a section, patterned where colours
/// begin anew, and cut by the cutting plane.
import * as THREE from 'three';

import {partsOf} from './palette.js';

const vertexShader = /* glsl */ `
    #include <clipping_planes_pars_vertex>
    varying vec3 vPlace;
    #ifdef SMOOTH
        varying vec3 vDirection;
    #endif
    void main() {
        vec4 place = vec4(position, 1.0);
        #ifdef SMOOTH
            vDirection = normalMatrix * normal;
        #endif
        #ifdef USE_INSTANCING
            place = instanceMatrix * place;
        #endif
        vec4 mvPosition = modelViewMatrix * place;
        vPlace = mvPosition.xyz;
        gl_Position = projectionMatrix * mvPosition;
        #include <clipping_planes_vertex>
    }
`;

// Patterns are fixed to the screen, so that they have the same size everywhere.
const fragmentShader = /* glsl */ `
    #include <clipping_planes_pars_fragment>
    uniform vec3 colour;
    uniform float opacity;
    uniform int pattern;
    uniform float pixel;
    varying vec3 vPlace;
    #ifdef SMOOTH
        varying vec3 vDirection;
    #endif

    float shadeOfPattern() {
        vec2 at = gl_FragCoord.xy / pixel;
        if (pattern == 1) return step(7.0, mod(at.x + at.y, 12.0));
        if (pattern == 2) return 1.0 - step(2.6, length(mod(at, 9.0) - 4.5));
        if (pattern == 3) return step(6.0, mod(at.x, 10.0));
        if (pattern == 4) return mod(floor(at.x / 6.0) + floor(at.y / 6.0), 2.0);
        return 0.0;
    }

    void main() {
        #include <clipping_planes_fragment>
        #ifdef SMOOTH
            vec3 direction = normalize(vDirection);
        #else
            vec3 direction = normalize(cross(dFdx(vPlace), dFdy(vPlace)));
        #endif
        float light = abs(dot(direction, normalize(vec3(-0.35, 0.55, 0.9))));
        float shade = 1.0 - 0.45 * shadeOfPattern();
        gl_FragColor = vec4(colour * shade * (0.5 + 0.5 * light), opacity);
    }
`;

/// One for all materials: the physical pixels that a pixel of the page has.
export const pixelUniform = {
    value: 1
};

export function surfaceMaterial({colour, pattern = 0, smooth = false, planes = null, front = 0}) {
    return new THREE.ShaderMaterial({
        vertexShader,
        fragmentShader,
        defines: smooth ? {SMOOTH: ''} : {},
        uniforms: {
            colour: {value: new THREE.Vector3(...partsOf(colour))},
            opacity: {value: 1},
            pattern: {value: pattern},
            pixel: pixelUniform,
        },
        side: THREE.DoubleSide,
        clipping: true,
        clippingPlanes: planes,
        // What lies on another face is drawn in front of it, and edges in front of both.
        polygonOffset: true,
        polygonOffsetFactor: 2 - front,
        polygonOffsetUnits: 2 - front,
    });
}

export function setOpacity(material, opacity) {
    material.uniforms.opacity.value = opacity;
    const isOpaque = opacity >= 1;
    material.transparent = !isOpaque;
    material.depthWrite = isOpaque;
}
