// What the validator of glTF's makers says of the files that the program writes, and what is in them.
//
//     node validate.mjs PROGRAM SAMPLES
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import assert from "node:assert/strict";
import test, { after } from "node:test";
import validator from "gltf-validator";

const [program, samples] = process.argv.slice(2);
const scratch = mkdtempSync(join(tmpdir(), "kvocaeio-gltf-"));
after(() => rmSync(scratch, { recursive: true }));

async function infoOf(source, ...options) {
    const out = join(scratch, "out.glb");
    execFileSync(program, ["convert", "--quiet", ...options, source, out]);
    const report = await validator.validateBytes(new Uint8Array(readFileSync(out)));
    assert.deepEqual(report.issues.messages, []);
    return report.info;
}

// Draw calls: sections with faces or bars; bodies that look alike and profiles with wires.
const sizes = {
    "hinge.inp": [4, 742],
    "clip.inp": [1, 672],
    "cover.inp": [2, 660],
    "housing.inp": [6, 2715],
    "bracket.pat": [5, 380],
    "bracket.bdf": [4, 332],
    "stack.3di": [6, 19460],
    reports: [1, 12],
};

for (const [sample, [calls, triangles]] of Object.entries(sizes))
    test(`${sample} is a valid file`, async () => {
        const info = await infoOf(join(samples, sample), "--force");
        assert.deepEqual([info.drawCallCount, info.totalTriangleCount], [calls, triangles]);
    });

test("names of any bytes become names that a document can hold", async () => {
    const deck = join(scratch, "names.inp");
    const text = '*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n*ELEMENT, TYPE=S3, ELSET=A\xe4"\\B\n7, 1, 2, 3\n';
    writeFileSync(deck, Buffer.from(text, "latin1"));
    assert.equal((await infoOf(deck)).totalTriangleCount, 1);
});
