/// The lists beside the picture: sections or bodies, findings, and what was picked.
import {byId, make, tableRow} from './dom.js';
import {counted, length, several, shortest} from './numbers.js';
import {swatchOf} from './palette.js';

const originNames = {
    solid: '',
    shell: 'shells',
    load: 'faces of loads',
    surface: 'faces of surfaces',
    line: 'lines',
};
export const nameOfSection = (section) => section.name || '(no name)';

/// The second line of a row in the list.
export function detailsOf(part) {
    if (part.section) {
        const {section} = part;
        const totals = new Map();
        for (const {shape, total} of section.groups)
            totals.set(shape, (totals.get(shape) ?? 0) + total);
        const kinds = [...totals].map(
            ([shape, total]) => `${counted(total)} ${total === 1 ? shape.singular : shape.name}`);
        const origin = originNames[section.origin];
        const property = section.property ? `property ${section.property}` : '';
        const thickness = section.thickness ? `thickness ${shortest(section.thickness)}` : '';
        return [origin, kinds.join(', '), property, thickness].filter(Boolean).join(' · ');
    }
    if (part.wires) {
        const diameters = [...new Set(part.wires.map((wire) => length(wire.diameter)))];
        return `${several(part.wires.length, 'bond wire')}, ⌀ ${
            diameters.slice(0, 3).join(', ')} mm`;
    }
    const [first] = part.bodies;
    if (first.isBall) {
        const diameters = [...new Set(part.bodies.map((ball) => length(ball.size[0])))];
        return `${several(part.bodies.length, first.kind)}, ⌀ ${
            diameters.slice(0, 3).join(', ')} mm`;
    }
    return `${first.kind}, ${first.size.map(length).join(' × ')} mm`;
}

export const nameOfPart = (part) =>
    (part.section ? nameOfSection(part.section) : part.name || '(no name)');
const kindOfPart = (part) =>
    (part.kind ? [make('small', {}, ` ${part.kind}${part.bodies?.length > 1 ? 's' : ''}`)] : []);
export const styleOfPart = (part) => part.style ?? {colour: part.colour, pattern: 0};

function partRow(part, changed) {
    const box = make('input', {type: 'checkbox'});
    box.checked = part.visible;
    box.addEventListener('change', () => {
        part.visible = box.checked;
        changed();
    });
    const swatch = make('span', {class: 'swatch'});
    swatch.style.background = swatchOf(styleOfPart(part));
    const name =
        make('span', {class: 'name'}, nameOfPart(part), make('small', {}, detailsOf(part)));
    const row = make('li', {}, make('label', {}, box, swatch, name));
    if (part.opacity !== undefined)
        row.append(opacityRow(part, changed));
    part.checkbox = box;
    return row;
}

function opacityRow(part, changed) {
    const slider = make(
        'input',
        {type: 'range', min: 0, max: 1, step: 0.05, 'aria-label': `Opacity of ${part.name}`});
    slider.value = part.opacity;
    const output = make('output', {}, `${Math.round(part.opacity * 100)} %`);
    slider.addEventListener('input', () => {
        part.opacity = Number(slider.value);
        output.value = `${Math.round(part.opacity * 100)} %`;
        changed();
    });
    return make('div', {class: 'row'}, 'opacity', slider, output);
}

/// `changed` is called when parts are switched on or off or become transparent.
export function showParts(parts, isPackage, changed) {
    byId('parts').querySelector('h2').textContent = isPackage ? 'Bodies and wires' : 'Sections';
    byId('parts').querySelector('ul').replaceChildren(
        ...parts.map((part) => partRow(part, changed)));
}

export function setAllParts(parts, isVisible) {
    for (const part of parts) {
        part.visible = isVisible;
        part.checkbox.checked = isVisible;
    }
}

function placesOf(finding) {
    const texts = finding.places.map(
        ([line, column, text]) => [line ? `line ${line}${column ? ':' + column : ''}` : '', text]
                                      .filter(Boolean)
                                      .join(' '));
    const more = finding.count - texts.length;
    return texts.filter(Boolean).join('; ') +
        (more > 0 && texts.some(Boolean) ? `; and ${counted(more)} more` : '');
}

export const isMarked = (finding) =>
    (finding.groups?.length ?? 0) + (finding.points?.length ?? 0) > 0;

/// What of a finding is marked in the picture.
export function markedOf(finding) {
    const elements = finding.groups.reduce((sum, group) => sum + group.elements, 0);
    const parts = [];
    if (elements > 0)
        parts.push(several(elements, 'element'));
    if (finding.points.length > 0)
        parts.push(several(finding.points.length, 'node'));
    return parts.join(' and ');
}

function findingRow(finding, clicked) {
    const times = finding.count > 1 ? ` (${counted(finding.count)} times)` : '';
    const row = make(
        'li', {class: finding.level}, make('span', {class: 'level'}, finding.level),
        `: ${finding.text}${times}`, make('small', {}, placesOf(finding)),
        make('small', {}, [finding.advice, `[${finding.code}]`].filter(Boolean).join(' ')));
    if (!isMarked(finding))
        return row;
    row.append(make('small', {class: 'go'}, `Show ${markedOf(finding)}`));
    row.classList.add('marked');
    row.tabIndex = 0;
    row.setAttribute('role', 'button');
    row.setAttribute('aria-pressed', 'false');
    row.addEventListener('click', () => clicked(finding));
    row.addEventListener('keydown', (event) => {
        if (event.key !== 'Enter' && event.key !== ' ')
            return;
        event.preventDefault();
        clicked(finding);
    });
    finding.row = row;
    return row;
}

export function showFindings(findings, notes, clicked) {
    const rows = findings.map((finding) => findingRow(finding, clicked));
    rows.push(...notes.map((note) => make('li', {class: 'note'}, note)));
    if (rows.length === 0)
        rows.push(make('li', {}, 'The import has found nothing to report.'));
    byId('findings').querySelector('h2').textContent =
        findings.length ? `Findings (${findings.length})` : 'Findings';
    byId('findings').querySelector('ul').replaceChildren(...rows);
}

const placeText = (place) => place.map(shortest).join(', ');

function rowsOfElement(hit, nodes, origin) {
    const {group, element, face, part} = hit;
    const {shape} = group;
    const rows = [tableRow('Section', nameOfPart(part))];
    rows.push(
        group.hasOids ? tableRow('Element OID', String(group.oids[element])) :
                        tableRow('Element', `row ${group.oids[element]} of the section`));
    rows.push(tableRow(
        'Kind',
        shape.singular +
            (originNames[part.section.origin] ? ` (${originNames[part.section.origin]})` : '')));
    if (shape.dimension === 3)
        rows.push(tableRow('Face', String(face + 1)));
    if (part.section.property)
        rows.push(tableRow('Property', String(part.section.property)));
    const table = make(
        'table', {class: 'nodes'},
        make(
            'tr', {},
            ...['Node OID', 'x', 'y', 'z'].map((text) => make('th', {scope: 'col'}, text))));
    for (const node of group.nodes.subarray(element * shape.nodes, (element + 1) * shape.nodes))
        table.append(make(
            'tr', {}, make('td', {}, String(nodes.oids[node])),
            ...[0, 1, 2].map(
                (axis) => make('td', {}, shortest(nodes.places[3 * node + axis] + origin[axis])))));
    return [make('table', {}, ...rows), table];
}

function rowsOfBody({part, thing}) {
    if (thing.path === undefined)
        return [
            tableRow('Name', nameOfPart(part)), tableRow('Kind', thing.kind),
            tableRow('Centre', `${placeText(thing.center)} mm`),
            thing.isBall ? tableRow('Diameter', `${shortest(thing.size[0])} mm`) :
                           tableRow('Size', `${thing.size.map(shortest).join(' × ')} mm`)
        ];
    const path = [...thing.path];
    return [
        tableRow('Profile', nameOfPart(part)),
        tableRow('Diameter', `${shortest(thing.diameter)} mm`),
        tableRow('Length', `${length(lengthOf(path))} mm`),
        tableRow('Points', String(thing.points)),
        tableRow('From', `${placeText(path.slice(0, 3))} mm`),
        tableRow('To', `${placeText(path.slice(-3))} mm`)
    ];
}

function lengthOf(path) {
    let sum = 0;
    for (let i = 3; i < path.length; i += 3)
        sum +=
            Math.hypot(path[i] - path[i - 3], path[i + 1] - path[i - 2], path[i + 2] - path[i - 1]);
    return sum;
}

/// `hit` as a scene's `pick` returns it; null hides the list. Places are shifted by `origin`.
export function showPicked(hit, data) {
    byId('picked').hidden = hit === null;
    if (hit === null)
        return;
    const origin = data.origin ?? [0, 0, 0];
    const content = [];
    if (hit.isCut)
        content.push(make(
            'table', {}, tableRow('Section', nameOfPart(hit.part)),
            tableRow('Cut face', 'inside of the section')));
    else if (hit.thing)
        content.push(make('table', {}, ...rowsOfBody(hit)));
    else
        content.push(...rowsOfElement(hit, data.nodes, origin));
    // What is left of a coordinate by rounding is none.
    const least =
        1e-6 * Math.max(...[0, 1, 2].map((axis) => data.box.max[axis] - data.box.min[axis]));
    const place = hit.place.toArray()
                      .map((value, axis) => value + origin[axis])
                      .map((value) => length(Math.abs(value) < least ? 0 : value))
                      .join(', ');
    content[0].append(tableRow('At', `${place}${data.unit ? ' ' + data.unit : ''}`));
    byId('picked').querySelector('div').replaceChildren(...content);
}

/// What a picture without lists says of itself.
export function showLegend(data, parts, finding, stretch) {
    const swatches = parts.filter((part) => part.visible).slice(0, 14).map((part) => {
        const swatch = make('span', {class: 'swatch'});
        swatch.style.background = swatchOf(styleOfPart(part));
        return make('li', {}, swatch, make('span', {}, nameOfPart(part), ...kindOfPart(part)));
    });
    const more = parts.filter((part) => part.visible).length - swatches.length;
    const content = [make('h1', {}, data.title), make('ul', {}, ...swatches)];
    if (more > 0)
        content.push(make('p', {}, `and ${counted(more)} more`));
    if (stretch)
        content.push(make('p', {}, `${stretch} times as high as it is`));
    if (finding)
        content.push(make(
            'p', {class: finding.level}, make('span', {class: 'level'}, finding.level),
            `: ${finding.text}`));
    byId('legend').replaceChildren(...content);
    byId('legend').hidden = false;
}
