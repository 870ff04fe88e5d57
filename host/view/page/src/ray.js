/// Where a ray meets triangles.

/// The nearest of the first `count` triangles, which are rows of `places`, that `ray` meets on the
/// side of `plane` that is shown; null where there is none. `isBack`: it is met from behind.
export function nearestTriangle(ray, nodes, count, places, plane) {
    const {origin: o, direction: d} = ray;
    let nearest = null;
    for (let row = 0; row < count; ++row) {
        const a = 3 * nodes[3 * row];
        const b = 3 * nodes[3 * row + 1];
        const c = 3 * nodes[3 * row + 2];
        const ax = places[a], ay = places[a + 1], az = places[a + 2];
        const ux = places[b] - ax, uy = places[b + 1] - ay, uz = places[b + 2] - az;
        const vx = places[c] - ax, vy = places[c + 1] - ay, vz = places[c + 2] - az;
        const px = d.y * vz - d.z * vy, py = d.z * vx - d.x * vz, pz = d.x * vy - d.y * vx;
        const determinant = ux * px + uy * py + uz * pz;
        if (determinant === 0)
            continue;
        const tx = o.x - ax, ty = o.y - ay, tz = o.z - az;
        const first = (tx * px + ty * py + tz * pz) / determinant;
        if (first < 0 || first > 1)
            continue;
        const qx = ty * uz - tz * uy, qy = tz * ux - tx * uz, qz = tx * uy - ty * ux;
        const second = (d.x * qx + d.y * qy + d.z * qz) / determinant;
        if (second < 0 || first + second > 1)
            continue;
        const distance = (vx * qx + vy * qy + vz * qz) / determinant;
        if (distance <= 0 || (nearest !== null && distance >= nearest.distance))
            continue;
        const place = ray.at(distance, o.clone());
        if (plane === null || plane.distanceToPoint(place) >= 0)
            nearest = {row, distance, place, isBack: determinant < 0};
    }
    return nearest;
}
