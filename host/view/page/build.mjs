/// Bundles the page into one text and writes it as the source of an array:
/// node build.mjs OUT.cpp FOLDER_OF_NODE_MODULES
import {readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
const [target, modules] = process.argv.slice(2);
const {build} = createRequire(join(modules, 'build.cjs'))('esbuild');
const read = (name) => readFileSync(join(here, 'src', name), 'utf8');

const common = {
    bundle: true,
    minify: true,
    write: false,
    logLevel: 'warning',
    nodePaths: [modules]
};
const script = await build({
    ...common,
    entryPoints: [join(here, 'src', 'main.js')],
    format: 'iife',
    target: ['es2022'],
    legalComments: 'inline',
});
const style = await build({...common, entryPoints: [join(here, 'src', 'style.css')]});
const licence = readFileSync(join(modules, 'three', 'LICENSE'), 'utf8').trim();

// A replacement text with dollars would be taken for a pattern; `</script` would end the script.
const parts = {
    '@STYLE@': style.outputFiles[0].text,
    '@SCRIPT@': `/*!\nthree.js\n\n${licence}\n*/\n` +
        script.outputFiles[0].text.replaceAll('</script', '<\\/script'),
};
const page = read('page.html').replace(/@[A-Z]+@/g, (name) => parts[name] ?? name);

// Numbers, since compilers limit the length of texts.
const bytes = Buffer.from(page, 'utf8');
const rows = [];
for (let at = 0; at < bytes.length; at += 64)
    rows.push(bytes.subarray(at, at + 64).join(','));
writeFileSync(target, `/// The page, as host/view/page/build.mjs has bundled it.
#include "view/page.h"

namespace kvocaeio::host {

namespace {
constexpr unsigned char kBytes[] = {
${rows.join(',\n')}};
}  // namespace

std::string_view viewPage() {
    return {reinterpret_cast<const char*>(kBytes), sizeof kBytes};
}

}  // namespace kvocaeio::host
`);
