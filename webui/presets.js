// Presets as pictures: a click recalls, the corner deletes, the last tile stores.
import { get } from './api.js'
import { deletePreset, recallPreset, storePreset } from './drive.js'
import { ask, attempt, byId, h, toast } from './dom.js'
import { on } from './signals.js'

const SETTLED_MS = 600
const HIGHEST = 254

let presets = []
let active = null // {id, isMoving}: the preset that was recalled here, until something else moves the camera
let settleTimer = 0
let reload = Promise.resolve()

const nameOf = ({ id, name }) => name || `Preset ${id}`

function tile(preset) {
    const { id, picture } = preset
    const name = nameOf(preset)
    const image = picture
        ? h('img', {
              src: `/presets/${id}.jpg?${picture}`,
              alt: '',
              loading: 'lazy',
              onerror: event => event.target.remove(),
          })
        : ''
    return h(
        'li',
        { class: 'preset', 'data-id': id },
        h(
            'button',
            { class: 'recall', type: 'button', title: `Go to ${name}`, onclick: () => recall(id) },
            h('span', { class: 'thumb' }, image, h('b', {}, id)),
            h('span', { class: 'name' }, name),
        ),
        h(
            'button',
            {
                class: 'over',
                type: 'button',
                'aria-label': `Store this position as ${name}`,
                title: 'Store here',
                onclick: () => replace(preset),
            },
            '●',
        ),
        h(
            'button',
            {
                class: 'delete',
                type: 'button',
                'aria-label': `Delete ${name}`,
                title: 'Delete',
                onclick: () => erase(preset),
            },
            '×',
        ),
    )
}

function freeNumber() {
    const taken = new Set(presets.map(({ id }) => id))
    for (let id = 1; id <= HIGHEST; ++id) if (!taken.has(id)) return id
    return undefined
}

function draw() {
    const free = freeNumber()
    const add = h(
        'li',
        { class: 'preset add' },
        h(
            'button',
            {
                class: 'recall',
                type: 'button',
                id: 'preset-add',
                title: 'Store this position',
                onclick: () => store(free),
            },
            h('span', { class: 'thumb' }, '+'),
            h('span', { class: 'name' }, `Store as ${free}`),
        ),
    )
    const focused = document.activeElement?.closest?.('.preset')?.dataset.id
    byId('preset-list').replaceChildren(...presets.map(tile), ...(free ? [add] : []))
    if (focused) byId('preset-list').querySelector(`[data-id="${focused}"] .recall`)?.focus()
    mark()
}

function mark() {
    for (const element of byId('preset-list').children) {
        const isActive = active !== null && Number(element.dataset.id) === active.id
        element.classList.toggle('active', isActive)
        element.classList.toggle('moving', isActive && active.isMoving)
        element.querySelector('.recall').toggleAttribute('aria-current', isActive)
    }
}

/// One list at a time: stores and deletions that follow each other ask once more, not once each.
function load() {
    load.wanted = true
    reload = reload.then(async () => {
        if (!load.wanted) return
        load.wanted = false
        await attempt(async () => {
            presets = (await get('/presets')).sort((a, b) => a.id - b.id)
            draw()
        })
    })
    return reload
}

function settle() {
    clearTimeout(settleTimer)
    settleTimer = setTimeout(() => {
        if (active) active.isMoving = false
        mark()
    }, SETTLED_MS)
}

function forget() {
    active = null
    mark()
}

export async function recall(id) {
    if (!presets.some(preset => preset.id === id))
        return toast(`Preset ${id} is empty. Shift and ${id} stores it.`, 'note')
    active = { id, isMoving: true }
    mark()
    settle()
    if (!(await attempt(() => recallPreset(id)))) forget()
}

/// The camera answers with its result in the bitmap: 0, or -1 as 64 bits.
async function checked(action, id, text) {
    const isDone = await attempt(async () => {
        const { s32SideEffectBitmap } = await action(id)
        if (s32SideEffectBitmap) throw new Error(text)
    })
    await load()
    return isDone
}

export async function store(id) {
    if (!(await checked(storePreset, id, `Preset ${id} cannot be stored.`))) return
    active = { id, isMoving: false }
    mark()
    toast(`Preset ${id} stored.`, 'note')
}

async function replace(preset) {
    if (await ask(`Replace ${nameOf(preset)} with the present position?`, 'Replace')) await store(preset.id)
}

async function erase(preset) {
    if (!(await ask(`Delete ${nameOf(preset)}?`, 'Delete'))) return
    if (active?.id === preset.id) active = null
    await checked(deletePreset, preset.id, `Preset ${preset.id} cannot be deleted.`)
}

export function start() {
    draw()
    on('refresh', load)
    on('preset', load)
    on('moved', forget)
    on('position', () => {
        if (active?.isMoving) settle()
        else if (active) forget()
    })
}
