// The keyboard, as the help tells it. Fields, lists and sliders keep their own keys.
import * as drive from './drive.js'
import { byId } from './dom.js'
import { recall, store } from './presets.js'
import { on } from './signals.js'
import { toggleFullScreen } from './stage.js'

const ARROWS = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, 1], ArrowDown: [0, -1] }
const ZOOMS = { '+': 1, '=': 1, '-': -1, _: -1 }
const FOCUSES = { '.': 1, ',': -1 }
const held = new Map() // code of the key -> what it was pressed as

const sum = n => Math.sign([...held.values()].reduce((total, key) => total + (ARROWS[key]?.[n] ?? 0), 0))
const last = table => [...held.values()].reduce((value, key) => table[key] ?? value, 0)

function follow(key) {
    if (key in ARROWS) drive.move(sum(0), sum(1))
    if (key in ZOOMS) drive.zoom(last(ZOOMS))
    if (key in FOCUSES) drive.focus(last(FOCUSES))
}

function release() {
    const keys = [...held.values()]
    held.clear()
    keys.forEach(follow)
}

const ACTIONS = {
    ' ': drive.stopAll,
    Escape: drive.stopAll,
    h: drive.home,
    H: drive.home,
    f: toggleFullScreen,
    F: toggleFullScreen,
    '?': () => byId('help').showModal(),
}

function isBusyElsewhere(event) {
    if (byId('app').hidden || byId('panel-drive').inert || document.querySelector('dialog[open]')) return true
    const { key } = event
    const target = event.target instanceof Element ? event.target : document.body
    if (key === 'Escape') return false
    if (target.matches('input:not([type=checkbox]), select, textarea')) return true
    if (target.matches('[role=tab]') && key.startsWith('Arrow')) return true
    return key === ' ' && target.matches('button, input, a')
}

function press(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || isBusyElsewhere(event)) return
    const { key, code } = event
    const digit = /^(?:Digit|Numpad)([1-9])$/.exec(code)
    if (key in ARROWS || key in ZOOMS || key in FOCUSES) {
        if (!event.repeat) {
            held.set(code, key)
            follow(key)
        }
    } else if (key in ACTIONS) {
        if (key === ' ' || key === 'Escape') held.clear()
        if (!event.repeat) ACTIONS[key]()
    } else if (digit) {
        if (!event.repeat) (event.shiftKey ? store : recall)(Number(digit[1]))
    } else {
        return
    }
    event.preventDefault()
}

/// What was set with the pointer does not keep the keys: the arrows drive again.
function returnKeys() {
    let isPointer = false
    addEventListener('pointerdown', () => (isPointer = true), true)
    addEventListener('keydown', () => (isPointer = false), true)
    const release = element => isPointer && element?.blur()
    document.addEventListener('click', ({ target }) => release(target.closest('[role=tab]')))
    document.addEventListener('change', ({ target }) => release(target.closest('#app :is(select, input)')))
}

export function start() {
    returnKeys()
    addEventListener('keydown', press)
    addEventListener('keyup', ({ code }) => {
        const key = held.get(code)
        held.delete(code)
        if (key !== undefined) follow(key)
    })
    addEventListener('blur', release)
    document.addEventListener('visibilitychange', () => document.hidden && release())
    on('leave', release)
    byId('help-open').addEventListener('click', () => byId('help').showModal())
}
