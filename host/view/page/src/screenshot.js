/// The picture as a file.

/// Model and overlay in one canvas, as they are on the screen at rest.
export function pictureOf(viewer, overlay) {
    viewer.lastMove = -Infinity;
    viewer.drawNow();
    const picture = document.createElement('canvas');
    picture.width = viewer.canvas.width;
    picture.height = viewer.canvas.height;
    const pen = picture.getContext('2d');
    pen.drawImage(viewer.canvas, 0, 0);
    const ratio = picture.width / viewer.width;
    pen.setTransform(ratio, 0, 0, ratio, 0, 0);
    overlay.paint(pen);
    return picture;
}

/// Offers the picture for download.
export function screenshot(viewer, overlay, title) {
    pictureOf(viewer, overlay).toBlob((blob) => {
        const link = document.createElement('a');
        link.href = URL.createObjectURL(blob);
        link.download = `${title.replace(/\.[^.]*$/, '')}.png`;
        link.click();
        setTimeout(() => URL.revokeObjectURL(link.href), 10000);
    }, 'image/png');
}
