// The panels behind tabs. On a wide window drive and presets are always in sight and have no tab.
import { byId, h } from './dom.js'
import { PANELS } from './items.js'
import { makeColourPanel } from './matrix.js'
import { Panel } from './panel.js'
import { makeRemotePanel } from './remote.js'
import { makeUsersPanel } from './users.js'

const SPECIAL = { colour: makeColourPanel, remote: makeRemotePanel, users: makeUsersPanel }
const PIPES = ['Close-up', 'Panorama']
const FIXED = [
    ['drive', 'Drive'],
    ['presets', 'Presets'],
]
const narrow = matchMedia('(max-width: 859px)')

const tabs = new Map() // id -> {button, section, panel}
let pipe = 0

function makePipeChoice() {
    const choice = h(
        'div',
        { class: 'segments', role: 'group', 'aria-label': 'Camera' },
        ...PIPES.map((name, n) =>
            h(
                'button',
                { type: 'button', 'data-pipe': n, 'aria-pressed': n === pipe, onclick: () => choosePipe(n) },
                name,
            ),
        ),
    )
    return choice
}

function choosePipe(n) {
    pipe = n
    document
        .querySelectorAll('[data-pipe]')
        .forEach(button => button.setAttribute('aria-pressed', Number(button.dataset.pipe) === n))
    for (const { panel, hasPipes } of tabs.values()) if (hasPipes) panel.pipe = n
}

function addTab(id, title, section, panel, hasPipes = false) {
    const button = h(
        'button',
        {
            type: 'button',
            role: 'tab',
            id: `tab-${id}`,
            'aria-controls': section.id,
            class: FIXED.some(([fixed]) => fixed === id) ? 'narrow-only' : '',
            onclick: () => choose(id),
        },
        title,
    )
    byId('tabs').append(button)
    section.setAttribute('aria-labelledby', button.id)
    tabs.set(id, { button, section, panel, hasPipes })
}

function makePanel({ id, title, short, pipes, sections }) {
    const body = h('div', { class: 'panel-body' })
    const section = h(
        'section',
        { id: `panel-${id}`, class: 'panel', role: 'tabpanel' },
        ...(pipes ? [makePipeChoice()] : []),
        body,
    )
    byId('panels').append(section)
    addTab(id, short ?? title, section, SPECIAL[id] ? SPECIAL[id](body) : new Panel(sections, body), pipes)
}

function choose(id) {
    if (!tabs.has(id) || (!narrow.matches && FIXED.some(([fixed]) => fixed === id)))
        id = narrow.matches ? 'drive' : 'exposure'
    for (const [other, { button, section, panel }] of tabs) {
        const isChosen = other === id
        button.setAttribute('aria-selected', isChosen)
        button.tabIndex = isChosen ? 0 : -1
        section.classList.toggle('chosen', isChosen)
        if (panel) panel.shown = isChosen
    }
    tabs.get(id).button.scrollIntoView({ block: 'nearest', inline: 'nearest' })
    history.replaceState(null, '', `#${id}`)
}

function walk(event) {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key]
    if (!step) return
    const seen = [...tabs.values()].map(({ button }) => button).filter(button => button.offsetParent)
    const next = seen[(seen.indexOf(document.activeElement) + step + seen.length) % seen.length]
    next.click()
    next.focus()
    event.preventDefault()
}

export function start() {
    for (const [id, title] of FIXED) addTab(id, title, byId(`panel-${id}`))
    PANELS.forEach(makePanel)
    byId('tabs').addEventListener('keydown', walk)
    narrow.addEventListener('change', () => choose(location.hash.slice(1)))
    choose(location.hash.slice(1))
}
