/// Fewer faces, for pictures of a movement.

/// For each node the one of those in the same cell of a grid over the box that is farthest from the
/// middle, so that the outline stays. The longest side of the box has so many cells.
export function cellsOf(places, box, cellsAlong) {
    const size = Math.max(...[0, 1, 2].map((axis) => box.max[axis] - box.min[axis])) || 1;
    const cellOf = (node, axis) => Math.min(
        1023,
        Math.max(0, Math.round((places[3 * node + axis] - box.min[axis]) / size * cellsAlong)));
    const distanceOf = (node) => [0, 1, 2].reduce(
        (sum, axis) =>
            sum + Math.abs(places[3 * node + axis] - (box.min[axis] + box.max[axis]) / 2),
        0);
    const count = places.length / 3;
    const farthest = new Map();
    const cells = new Uint32Array(count);
    for (let node = 0; node < count; ++node) {
        const cell = (cellOf(node, 0) << 20) | (cellOf(node, 1) << 10) | cellOf(node, 2);
        cells[node] = cell;
        const other = farthest.get(cell);
        if (other === undefined || distanceOf(node) > distanceOf(other))
            farthest.set(cell, node);
    }
    return cells.map((cell) => farthest.get(cell));
}

/// The triangles among the first `count` whose corners are in three cells, with the nodes of those
/// cells. All triangles of a mesh taken together are as closed as they were.
export function coarseTriangles(nodes, count, cells) {
    const kept = new Uint32Array(3 * count);
    let size = 0;
    for (let i = 0; i < 3 * count; i += 3) {
        const a = cells[nodes[i]];
        const b = cells[nodes[i + 1]];
        const c = cells[nodes[i + 2]];
        if (a === b || b === c || c === a)
            continue;
        kept[size++] = a;
        kept[size++] = b;
        kept[size++] = c;
    }
    return kept.slice(0, size);
}
