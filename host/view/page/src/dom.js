/// Elements of the page.

export const byId = (id) => document.getElementById(id);

/// An element with attributes and children; texts are texts, whatever is in them.
export function make(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes))
        if (value !== undefined)
            element.setAttribute(name, value);
    element.append(...children);
    return element;
}

/// A row of a table with a heading.
export const tableRow = (heading, ...cells) => make(
    'tr', {}, make('th', {scope: 'row'}, heading), ...cells.map((cell) => make('td', {}, cell)));
