/// Numbers as people read them.

const grouping = new Intl.NumberFormat('en', {useGrouping: 'always'});

/// "1,000,000".
export const counted = (number) => grouping.format(number).replaceAll(',', '\u202f');

/// "1 element", "2 elements".
export const several = (number, thing) => `${counted(number)} ${thing}${number === 1 ? '' : 's'}`;

/// The fewest digits that stand for the same single-precision number.
export function shortest(value) {
    if (!Number.isFinite(value))
        return String(value);
    for (let digits = 1; digits < 10; ++digits) {
        const text = value.toPrecision(digits);
        if (Math.fround(Number(text)) === Math.fround(value))
            return String(Number(text));
    }
    return String(value);
}

/// Lengths to four digits.
export const length = (value) => String(Number(value.toPrecision(4)));
