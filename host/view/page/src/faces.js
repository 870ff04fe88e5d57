/// Faces of elements as triangles, and their edges as lines.

/// The corners of triangles in a face, by the number of its nodes: corners first, then the nodes on
/// the edges.
const trianglesOfFace = {
    3: [0, 1, 2],
    4: [0, 1, 2, 0, 2, 3],
    6: [0, 3, 5, 3, 1, 4, 5, 4, 2, 3, 4, 5],
    8: [4, 1, 5, 5, 2, 6, 6, 3, 7, 7, 0, 4, 4, 5, 6, 4, 6, 7],
};
const cornersOfFace = {
    3: 3,
    4: 4,
    6: 3,
    8: 4
};

/// The places of the nodes of each face of a shape; a shell is its own only face.
export function facesOf(shape) {
    if (shape.faces.length > 0)
        return shape.faces;
    return shape.dimension === 2 ? [[...Array(shape.nodes).keys()]] : [];
}

/// Calls `take(nodes, element, face)` for the faces of `group` that `masks` has bits of; `nodes` is
/// the same array in every call.
export function eachFace(group, masks, take) {
    const faces = facesOf(group.shape);
    const nodes = faces.map((face) => new Int32Array(face.length));
    for (let element = 0; element < group.elements; ++element) {
        const first = element * group.shape.nodes;
        for (let mask = masks[element], face = 0; mask !== 0; mask >>= 1, ++face) {
            if ((mask & 1) === 0)
                continue;
            for (let i = 0; i < nodes[face].length; ++i)
                nodes[face][i] = group.nodes[first + faces[face][i]];
            take(nodes[face], element, face);
        }
    }
}

function countTriangles(groups, masksOf) {
    let count = 0;
    for (const group of groups) {
        const perFace = facesOf(group.shape).map((face) => trianglesOfFace[face.length].length / 3);
        for (const mask of masksOf(group))
            for (let face = 0; mask >> face !== 0; ++face)
                count += (mask >> face & 1) * perFace[face];
    }
    return count;
}

/// The faces of groups as triangles, and of each triangle its group, element and face.
export class Triangles {
    constructor(groups) {
        const outer = countTriangles(groups, (group) => group.outer);
        const all = outer + countTriangles(groups, (group) => group.between);
        this.nodes = new Uint32Array(3 * all);
        this.elements = new Uint32Array(all);
        this.faces = new Uint8Array(all);
        this.groups = groups.map((group) => ({group, ranges: []}));
        this.count = 0;
        this.add((group) => group.outer);
        this.outerCount = this.count;  // those after them border on other sections
        this.add((group) => group.between);
    }

    add(masksOf) {
        for (const {group, ranges} of this.groups) {
            const first = this.count;
            eachFace(group, masksOf(group), (nodes, element, face) => {
                const table = trianglesOfFace[nodes.length];
                for (let i = 0; i < table.length; ++i) {
                    this.nodes[3 * this.count] = nodes[table[i]];
                    this.nodes[3 * this.count + 1] = nodes[table[++i]];
                    this.nodes[3 * this.count + 2] = nodes[table[++i]];
                    this.elements[this.count] = element;
                    this.faces[this.count++] = face;
                }
            });
            ranges.push([first, this.count]);
        }
    }

    /// What the triangle in `row` is of.
    ownerOf(row) {
        const owner = this.groups.find(
            ({ranges}) => ranges.some(([first, end]) => row >= first && row < end));
        return {group: owner.group, element: this.elements[row], face: this.faces[row]};
    }
}

/// The edges of faces, each once: a hash table over the two corners.
class EdgeTable {
    constructor(faceEdges) {
        let size = 16;
        while (size < 2 * faceEdges)
            size *= 2;
        this.slots = new Int32Array(size).fill(-1);
        this.corners = new Int32Array(2 * faceEdges);
        this.middles = new Int32Array(faceEdges);
        this.uses = new Uint8Array(faceEdges);
        this.normals = new Float32Array(3 * faceEdges);
        this.isSharp = new Uint8Array(faceEdges);
        this.count = 0;
    }

    add(a, b, middle, normal) {
        const low = Math.min(a, b);
        const high = Math.max(a, b);
        let slot = (Math.imul(low, 73856093) ^ Math.imul(high, 19349663)) & (this.slots.length - 1);
        for (;; slot = (slot + 1) & (this.slots.length - 1)) {
            const row = this.slots[slot];
            if (row < 0)
                break;
            if (this.corners[2 * row] === low && this.corners[2 * row + 1] === high) {
                this.meet(row, normal);
                return;
            }
        }
        const row = this.count++;
        this.slots[slot] = row;
        this.corners[2 * row] = low;
        this.corners[2 * row + 1] = high;
        this.middles[row] = middle;
        this.uses[row] = 1;
        this.normals.set(normal, 3 * row);
    }

    /// Two faces that meet at 30 degrees or more make a sharp edge.
    meet(row, normal) {
        const [x, y, z] = this.normals.subarray(3 * row, 3 * row + 3);
        this.uses[row] = Math.min(255, this.uses[row] + 1);
        if (x * normal[0] + y * normal[1] + z * normal[2] < Math.cos(Math.PI / 6))
            this.isSharp[row] = 1;
    }
}

/// The normal of a face, of the length 1, from the diagonals or edges of its corners.
function normalOf(nodes, places, normal) {
    const corners = cornersOfFace[nodes.length];
    const at = (i, axis) => places[3 * nodes[i] + axis];
    const [p, q, r, s] = corners === 4 ? [0, 2, 1, 3] : [0, 1, 0, 2];
    const u = [0, 1, 2].map((axis) => at(q, axis) - at(p, axis));
    const v = [0, 1, 2].map((axis) => at(s, axis) - at(r, axis));
    normal[0] = u[1] * v[2] - u[2] * v[1];
    normal[1] = u[2] * v[0] - u[0] * v[2];
    normal[2] = u[0] * v[1] - u[1] * v[0];
    const length = Math.hypot(normal[0], normal[1], normal[2]) || 1;
    for (let axis = 0; axis < 3; ++axis)
        normal[axis] /= length;
}

/// The edges of the faces of `groups` as pairs of nodes: all, and those that are sharp or belong to
/// one face alone, or to three. An edge with a node on it is two pairs.
export function edgesOf(groups, places) {
    const masksOf = (group) => group.outer.map((mask, element) => mask | group.between[element]);
    let faceEdges = 0;
    for (const group of groups)
        eachFace(group, masksOf(group), (nodes) => (faceEdges += cornersOfFace[nodes.length]));
    const table = new EdgeTable(faceEdges);
    const normal = new Float32Array(3);
    for (const group of groups)
        eachFace(group, masksOf(group), (nodes) => {
            const corners = cornersOfFace[nodes.length];
            normalOf(nodes, places, normal);
            for (let i = 0; i < corners; ++i) {
                const a = nodes[i];
                const b = nodes[(i + 1) % corners];
                table.add(a, b, nodes.length > corners ? nodes[corners + i] : -1, normal);
            }
        });
    const all = [];
    const features = [];
    for (let row = 0; row < table.count; ++row) {
        const [a, b] = table.corners.subarray(2 * row, 2 * row + 2);
        const middle = table.middles[row];
        const pairs = middle < 0 ? [a, b] : [a, middle, middle, b];
        all.push(...pairs);
        if (table.isSharp[row] || table.uses[row] !== 2)
            features.push(...pairs);
    }
    return {all: Uint32Array.from(all), features: Uint32Array.from(features)};
}

/// All edges of the element in `row` of `group`, as pairs of nodes.
export function edgesOfElement(group, row) {
    const shape = group.shape;
    const nodes = group.nodes.subarray(row * shape.nodes, (row + 1) * shape.nodes);
    if (shape.dimension === 1)
        return [nodes[0], nodes[1]];
    const pairs = [];
    for (const face of facesOf(shape)) {
        const corners = cornersOfFace[face.length];
        for (let i = 0; i < corners; ++i) {
            const ring = [nodes[face[i]], nodes[face[(i + 1) % corners]]];
            if (face.length > corners)
                ring.splice(1, 0, nodes[face[corners + i]]);
            for (let j = 0; j + 1 < ring.length; ++j)
                pairs.push(ring[j], ring[j + 1]);
        }
    }
    return pairs;
}
