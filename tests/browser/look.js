// What the large picture of the page shows, small enough to compare.

/// Mean difference of two looks from which they show something else than people who move: measured, people make 4.
export const ANOTHER = 14

const WHOLE = [0, 0, 1, 1]
export const MENU = [0, 0, 0.2, 0.3] // where the menu opens

/// A look: a part of the picture (left, top, width, height) in 32 x 18 grey squares; null: there is none yet.
export function at(page, part = WHOLE) {
    return page.evaluate(([left, top, width, height]) => {
        const canvas = document.querySelector('.view.main canvas')
        if (canvas.width < 320) return null
        const small = new OffscreenCanvas(32, 18).getContext('2d', { willReadFrequently: true })
        small.drawImage(
            canvas,
            left * canvas.width,
            top * canvas.height,
            width * canvas.width,
            height * canvas.height,
            0,
            0,
            32,
            18,
        )
        const { data } = small.getImageData(0, 0, 32, 18)
        return Array.from({ length: 32 * 18 }, (_, n) =>
            Math.round((data[4 * n] + data[4 * n + 1] + data[4 * n + 2]) / 3),
        )
    }, part)
}

export function difference(one, other) {
    if (!one || !other) return 0
    return one.reduce((sum, value, n) => sum + Math.abs(value - other[n]), 0) / one.length
}
