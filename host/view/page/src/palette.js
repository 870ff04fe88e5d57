/// Colours that can be told apart without colour vision: no two of a table have the same
/// lightness, and after the last one they begin anew with a pattern.

/// For sections, in an order in which neighbours differ in lightness.
export const sectionColours = [
    '#286ea9',
    '#f5a53b',
    '#3aa182',
    '#f9e76d',
    '#684391',
    '#a6d6ed',
    '#d9532c',
    '#d88bbb',
];
/// For faces of loads and of surfaces, which always have a pattern.
export const loadColours = ['#d6006c', '#ff8f8f'];
export const surfaceColours = ['#19a0a6', '#7fd6c2'];
/// For what a finding is about.
export const markColour = '#e60026';
export const selectionColour = '#ffd400';

/// The patterns that the shader of surface_material.js knows.
export const patterns = {
    plain: 0,
    stripes: 1,
    dots: 2,
    bars: 3,
    squares: 4
};

/// Colour and pattern of the section that is the `index`th of its origin.
export function styleOf(origin, index) {
    if (origin === 'load')
        return pick(loadColours, index, [patterns.stripes, patterns.bars]);
    if (origin === 'surface')
        return pick(surfaceColours, index, [patterns.dots, patterns.squares]);
    return pick(sectionColours, index, Object.values(patterns));
}

function pick(colours, index, cycle) {
    const round = Math.floor(index / colours.length);
    return {colour: colours[index % colours.length], pattern: cycle[round % cycle.length]};
}

/// Red, green and blue from 0 to 1 as they are in a file, and back.
export function partsOf(colour) {
    return [1, 3, 5].map((at) => parseInt(colour.slice(at, at + 2), 16) / 255);
}
export function colourOf(parts) {
    const byte = (part) => Math.round(Math.min(1, Math.max(0, part)) * 255);
    return '#' + parts.map((part) => byte(part).toString(16).padStart(2, '0')).join('');
}

/// The swatch of a pattern as a CSS background.
export function swatchOf({colour, pattern}) {
    const shade = colourOf(partsOf(colour).map((part) => part * 0.55));
    switch (pattern) {
        case patterns.stripes:
            return `repeating-linear-gradient(135deg, ${colour} 0 4px, ${shade} 4px 7px)`;
        case patterns.bars:
            return `repeating-linear-gradient(90deg, ${colour} 0 4px, ${shade} 4px 7px)`;
        case patterns.dots:
            return `radial-gradient(${shade} 35%, transparent 40%) 0 0 / 7px 7px, ${colour}`;
        case patterns.squares:
            return `conic-gradient(${shade} 25%, ${colour} 0 50%, ${shade} 0 75%, ${colour} 0)` +
                ' 0 0 / 9px 9px';
        default:
            return colour;
    }
}
