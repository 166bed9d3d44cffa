// The controls of panel rows: each shows a value and tells when a user changes it.
//   show(value)      without telling
//   enable(bool)
//   busy             a user is moving it right now
//   element          what stands in the row
import { h } from './dom.js'
import { rangeOf, settingOf } from './settings.js'

let lastId = 0

/// A range input with its value beside it. Log curves: positions 0 to 1000 stand for the range by ratios.
function slider(row, pipe, change) {
    const id = `item${++lastId}`
    const input = h('input', { type: 'range', id, class: row.tint ? `tint ${row.tint}` : '' })
    const output = h('output', { for: id, title: 'Double-click: default' })
    const isLog = row.curve === 'log'
    let bounds = rangeOf(settingOf(row), pipe)
    const toPosition = value =>
        isLog ? (1000 * Math.log(value / bounds.min)) / Math.log(bounds.max / bounds.min) : value
    const toValue = position =>
        isLog ? Math.round(bounds.min * (bounds.max / bounds.min) ** (position / 1000)) : Number(position)
    const text = value => String(row.text ? row.text(value) : value)
    const control = {
        id,
        element: h('div', { class: 'slider' }, input, output),
        busy: false,
        bound() {
            bounds = rangeOf(settingOf(row), pipe)
            input.min = isLog ? 0 : bounds.min
            input.max = isLog ? 1000 : bounds.max
            input.step = isLog ? 1 : bounds.step || 1
        },
        show(value) {
            control.bound()
            input.value = toPosition(value)
            output.value = text(value)
            input.setAttribute('aria-valuetext', text(value))
        },
        enable: on => {
            input.disabled = !on
        },
    }
    const tell = value => {
        output.value = text(value)
        input.setAttribute('aria-valuetext', text(value))
        change(value)
    }
    input.addEventListener('input', () => tell(toValue(input.value)))
    input.addEventListener('pointerdown', () => {
        control.busy = true
    })
    for (const name of ['pointerup', 'pointercancel', 'change', 'blur'])
        input.addEventListener(name, () => {
            control.busy = false
        })
    output.addEventListener('dblclick', () => {
        if (input.disabled) return
        control.show(bounds.default)
        change(bounds.default)
    })
    control.bound()
    return control
}

function select(row, pipe, change) {
    const id = `item${++lastId}`
    const input = h('select', { id }, ...row.words.map(([value, text]) => h('option', { value }, text)))
    input.addEventListener('change', () => change(Number(input.value)))
    return {
        id,
        element: input,
        busy: false,
        show(value) {
            if (![...input.options].some(option => Number(option.value) === value)) {
                input.append(h('option', { value }, `${row.label} ${value}`))
            }
            input.value = value
        },
        enable: on => {
            input.disabled = !on
        },
    }
}

function toggle(row, pipe, change) {
    const id = `item${++lastId}`
    const input = h('input', { type: 'checkbox', role: 'switch', id })
    input.addEventListener('change', () => change(input.checked ? 1 : 0))
    return {
        id,
        element: input,
        busy: false,
        show: value => {
            input.checked = value !== 0
        },
        enable: on => {
            input.disabled = !on
        },
    }
}

function button(row, pipe, change) {
    const id = `item${++lastId}`
    const input = h('button', { type: 'button', id, 'aria-label': `${row.label}: ${row.text}` }, row.text)
    input.addEventListener('click', () => change(row.value ?? 0))
    return {
        id,
        element: input,
        busy: false,
        show: value => input.classList.toggle('held', row.key !== undefined && value === 1),
        enable: on => {
            input.disabled = !on
        },
    }
}

const KINDS = { slider, select, switch: toggle, button }

/// @param change  called with the value that a user chose
export const makeControl = (row, pipe, change) => KINDS[row.kind](row, pipe, change)
