/// The data of the page: a JSON text and a stream of numbers, as host/view/page_data.h tells.

/// The bytes that `text` stands for, in base64.
export function bytesOfBase64(text) {
    if (Uint8Array.fromBase64)
        return Uint8Array.fromBase64(text);
    const characters = atob(text);
    const bytes = new Uint8Array(characters.length);
    for (let i = 0; i < bytes.length; ++i)
        bytes[i] = characters.charCodeAt(i);
    return bytes;
}

/// Numbers one after the other.
export class NumberStream {
    constructor(bytes) {
        this.bytes = bytes;
        this.at = 0;
    }

    floats(count) {
        const end = this.at + 4 * count;
        const values = new Float32Array(this.bytes.slice(this.at, end).buffer);
        this.at = end;
        return values;
    }

    octets(count) {
        this.at += count;
        return this.bytes.subarray(this.at - count, this.at);
    }

    /// Integers in rows of `width`, each as the difference to the one above it.
    integers(count, width = 1) {
        const values = new Int32Array(count);
        const bytes = this.bytes;
        let at = this.at;
        for (let i = 0; i < count; ++i) {
            let byte = bytes[at++];
            let coded = byte & 127;
            for (let shift = 7; byte > 127; shift += 7) {
                byte = bytes[at++];
                coded |= (byte & 127) << shift;
            }
            const difference = (coded >>> 1) ^ -(coded & 1);
            values[i] = i < width ? difference : values[i - width] + difference;
        }
        this.at = at;
        return values;
    }
}

/// A group of elements of one kind: what its JSON says, and OID, nodes and shown faces of each.
function readGroup(group, kinds, stream) {
    const kind = kinds[group.kind];
    const count = group.elements;
    return {
        ...group,
        shape: kind,
        oids: stream.integers(count),
        nodes: stream.integers(count * kind.nodes, kind.nodes),
        outer: stream.octets(count),
        between: stream.octets(count),
    };
}

function readMesh(scene, stream) {
    const nodes = {
        places: stream.floats(3 * scene.nodes),
        oids: stream.integers(scene.nodes),
    };
    const sections = scene.sections.map(
        (section) => ({
            ...section,
            groups: section.groups.map((group) => readGroup(group, scene.kinds, stream)),
        }));
    const findings = scene.findings.map(
        (finding) => ({
            ...finding,
            groups: finding.groups.map((group) => readGroup(group, scene.kinds, stream)),
            points: stream.integers(finding.points),
        }));
    return {...scene, nodes, sections, findings};
}

function readPackage(scene, stream) {
    return {
        ...scene,
        wires: scene.wires.map((wire) => ({...wire, path: stream.floats(3 * wire.points)})),
    };
}

/// All that the page shows.
export function readScene() {
    const scene = JSON.parse(document.getElementById('scene').textContent);
    const text = document.getElementById('geometry').textContent.trim();
    const stream = new NumberStream(bytesOfBase64(text));
    return scene.content === 'mesh' ? readMesh(scene, stream) : readPackage(scene, stream);
}
