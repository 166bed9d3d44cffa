// The colour matrix: hue and saturation of six colours; and the looks, which set many image items at once.
import { call, Latest } from './api.js'
import { makeControl } from './controls.js'
import { attempt, h, toast } from './dom.js'
import { COLOURS, LOOKS, MATRIX } from './items.js'
import { on } from './signals.js'

const OWN_LOOKS = 10
const LOOK_ITEM = 55

/// One kind of the matrix: six sliders.
class Matrix {
    #controls = []
    #senders = []

    constructor(kind) {
        this.kind = kind
        this.element = h('div', { class: 'rows' })
        this.build(0)
    }

    get #settings() {
        return COLOURS.map(colour => colour[0].toUpperCase() + this.kind.suffix)
    }

    build(pipe) {
        this.pipe = pipe
        this.#senders = COLOURS.map(
            (colour, n) =>
                new Latest(value => call(`SET_${this.kind.event}`, { id: pipe, type: n + 1, [colour]: value }), {
                    done: () => attempt(() => this.read()),
                    failed: error => error.status !== 401 && toast(error.message),
                }),
        )
        this.#controls = COLOURS.map((colour, n) =>
            makeControl({ kind: 'slider', key: this.#settings[n], tint: colour, text: this.kind.text }, pipe, value =>
                this.#senders[n].push(value),
            ),
        )
        const rows = this.#controls.map((control, n) =>
            h(
                'div',
                { class: 'row slider-row' },
                h('label', { for: control.id }, COLOURS[n][0].toUpperCase() + COLOURS[n].slice(1)),
                control.element,
            ),
        )
        this.element.replaceChildren(h('h3', {}, this.kind.title), ...rows)
    }

    async read() {
        const { pipe } = this
        const values = await call(`GET_${this.kind.event}`, { id: pipe })
        if (pipe !== this.pipe) return
        COLOURS.forEach((colour, n) => this.#isFree(n) && this.#controls[n].show(values[colour]))
    }

    #isFree = n => !this.#senders[n].busy && !this.#controls[n].busy

    heard({ setting, pipe, value }) {
        const n = this.#settings.indexOf(setting)
        if (n >= 0 && (pipe ?? 0) === this.pipe && this.#isFree(n)) this.#controls[n].show(value)
    }
}

/// Recalling a look changes settings all over; the event stream tells them.
function makeLooks() {
    const act = (action, number) => call('SET_ISP', { s32EventType: LOOK_ITEM, s32Value0: action, s32Value1: number })
    const number = h(
        'select',
        { id: 'look', 'aria-label': 'Own look' },
        ...Array.from({ length: OWN_LOOKS }, (_, n) => h('option', { value: n }, `Look ${n + 1}`)),
    )
    const own = (text, action, done, refused) =>
        h(
            'button',
            {
                type: 'button',
                onclick: () =>
                    attempt(async () => {
                        const { s32Value } = await act(action, Number(number.value))
                        const name = `Look ${Number(number.value) + 1}`
                        if (s32Value !== 0) toast(`${name} ${refused}.`)
                        else if (done) toast(`${name} ${done}.`, 'note')
                    }),
            },
            text,
        )
    return h(
        'div',
        { class: 'rows' },
        h('h3', {}, 'Looks'),
        h(
            'div',
            { class: 'buttons' },
            ...LOOKS.map(([id, text]) =>
                h('button', { type: 'button', onclick: () => attempt(() => act(1, id)) }, text),
            ),
        ),
        h(
            'div',
            { class: 'buttons' },
            number,
            own('Use', 1),
            own('Store', 0, 'stored', 'cannot be stored'),
            own('Delete', 2, 'deleted', 'was not stored'),
        ),
    )
}

/// @return what the panel host needs: {shown, pipe}
export function makeColourPanel(body) {
    const matrices = MATRIX.map(kind => new Matrix(kind))
    const looks = makeLooks()
    let isShown = false,
        isStale = true
    const read = () => {
        isStale = !isShown
        if (isShown) attempt(() => Promise.all(matrices.map(matrix => matrix.read())))
    }
    body.append(...matrices.map(({ element }) => element), looks)
    on('refresh', read)
    on('reset', read)
    on('settings', () => matrices.forEach(matrix => matrix.build(matrix.pipe)))
    on('setting', change => matrices.forEach(matrix => matrix.heard(change)))
    return {
        set shown(shown) {
            isShown = shown
            if (shown && isStale) read()
        },
        set pipe(pipe) {
            matrices.forEach(matrix => matrix.build(pipe))
            looks.hidden = pipe !== 0
            read()
        },
    }
}
