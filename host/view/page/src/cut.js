/// The cutting plane, and the cut faces that close what it opens.
import * as THREE from 'three';

import {colourOf, partsOf} from './palette.js';
import {cornersOf} from './viewer.js';

const axes = {
    x: [1, 0, 0],
    y: [0, 1, 0],
    z: [0, 0, 1]
};

/// What lies behind a closed surface is counted in the stencil buffer: back faces up, front faces
/// down. Where the sum is not 0, the plane is inside.
function countingMaterial(side, operation, planes) {
    return new THREE.MeshBasicMaterial({
        side,
        depthWrite: false,
        depthTest: false,
        colorWrite: false,
        clippingPlanes: planes,
        stencilWrite: true,
        stencilFunc: THREE.AlwaysStencilFunc,
        stencilFail: operation,
        stencilZFail: operation,
        stencilZPass: operation,
    });
}

class Cap {
    constructor(part, planes, order) {
        this.part = part;
        this.object = new THREE.Group();
        this.counters = [
            [THREE.BackSide, THREE.IncrementWrapStencilOp],
            [THREE.FrontSide, THREE.DecrementWrapStencilOp],
        ].map(([side, operation]) => {
            const material = countingMaterial(side, operation, planes);
            const mesh = part.mesh.isInstancedMesh ?
                Object.assign(
                    new THREE.InstancedMesh(part.geometry, material, part.mesh.count),
                    {instanceMatrix: part.mesh.instanceMatrix}) :
                new THREE.Mesh(part.geometry, material);
            mesh.frustumCulled = false;
            mesh.renderOrder = order;
            this.object.add(mesh);
            part.counters?.push(mesh);
            return mesh;
        });
        const colour = part.style?.colour ?? part.colour;
        this.material = new THREE.MeshBasicMaterial({
            color: colourOf(partsOf(colour).map((value) => value * 0.86 + 0.06)),
            side: THREE.DoubleSide,
            stencilWrite: true,
            stencilRef: 0,
            stencilFunc: THREE.NotEqualStencilFunc,
            stencilFail: THREE.ReplaceStencilOp,
            stencilZFail: THREE.ReplaceStencilOp,
            stencilZPass: THREE.ReplaceStencilOp,
        });
        this.face = new THREE.Mesh(new THREE.PlaneGeometry(1, 1), this.material);
        this.face.frustumCulled = false;
        this.face.renderOrder = order + 0.1;
        this.face.onAfterRender = (renderer) => renderer.clearStencil();
    }

    dispose() {
        for (const mesh of this.counters)
            mesh.material.dispose();
        this.material.dispose();
    }
}

export class Cut {
    /// `planes` is the list that the materials of the model cut by.
    constructor(viewer, planes) {
        this.viewer = viewer;
        this.planes = planes;
        this.plane = new THREE.Plane();
        this.normal = null;
        this.position = 0.5;
        this.isFlipped = false;
        this.caps = [];
        this.capFaces =
            new THREE.Group();  // of the world, not of the model, which may be stretched
        viewer.scene.add(this.capFaces);
    }

    get isOn() { return this.planes.length > 0; }

    /// `along`: "x", "y", "z", a direction, or null for no cut.
    setAxis(along, model) {
        this.normal =
            along === null ? null : new THREE.Vector3(...(axes[along] ?? along)).normalize();
        this.update(model);
    }

    /// Along the normal, the smallest and largest coordinate of the model, and that of the plane.
    get range() {
        const box = this.viewer.shownBox;
        const values = cornersOf(box).map((corner) => this.normal.dot(corner));
        const low = Math.min(...values);
        const high = Math.max(...values);
        return {low, high, at: low + (high - low) * this.position};
    }

    update(model) {
        this.clear();
        if (this.normal === null)
            return;
        const {low, high, at} = this.range;
        // What is kept lies behind the plane as the axis points, or with flipping before it.
        const sign = this.isFlipped ? 1 : -1;
        this.plane.normal.copy(this.normal).multiplyScalar(sign);
        // Meshes like to have nodes where one likes to cut: those are just cut off.
        this.plane.constant = -sign * at - 1e-5 * (high - low);
        this.planes.push(this.plane);
        const sphere = this.viewer.shownBox.getBoundingSphere(new THREE.Sphere());
        let order = 1;
        for (const part of model.parts) {
            if (!part.visible || !part.isClosed || part.material.transparent)
                continue;
            const cap = new Cap(part, this.planes, order++);
            part.object.add(cap.object);
            const foot = this.plane.projectPoint(sphere.center, new THREE.Vector3());
            cap.face.position.copy(foot);
            cap.face.lookAt(foot.clone().add(this.plane.normal));
            cap.face.scale.setScalar(2.2 * sphere.radius || 1);
            this.capFaces.add(cap.face);
            this.caps.push(cap);
        }
    }

    clear() {
        this.planes.length = 0;
        for (const cap of this.caps) {
            cap.object.removeFromParent();
            if (cap.part.counters)
                cap.part.counters.length = 0;
            cap.dispose();
        }
        this.caps = [];
        this.capFaces.clear();
    }
}
