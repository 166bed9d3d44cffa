// The round pad: eight arrows at its rim, a knob for any direction and speed in its middle; and the rockers.
import * as drive from './drive.js'
import { attempt, byId, h, hold } from './dom.js'
import { SPEEDS } from './items.js'
import { Panel } from './panel.js'
import { valueOf } from './settings.js'
import { on } from './signals.js'

const ARROWS = [
    [0, 1, 'Up'],
    [1, 1, 'Up and right'],
    [1, 0, 'Right'],
    [1, -1, 'Down and right'],
    [0, -1, 'Down'],
    [-1, -1, 'Down and left'],
    [-1, 0, 'Left'],
    [-1, 1, 'Up and left'],
]

function makeArrows() {
    ARROWS.forEach(([x, y, label], n) => {
        const arrow = h('button', { type: 'button', class: `arrow arrow-${n}`, 'aria-label': label, title: label })
        hold(
            arrow,
            () => drive.move(x, y),
            () => drive.move(0, 0),
        )
        byId('disc').append(arrow)
    })
}

const STEPS = 6
const DEAD_ZONE = 0.12

/// Share of the set speed at a deflection of -1 to 1, in steps so that a drag makes few requests.
function shareOf(deflection) {
    const size = (Math.abs(deflection) - DEAD_ZONE) / (1 - DEAD_ZONE)
    return size <= 0 ? 0 : Math.min(1, Math.ceil(size * STEPS) / STEPS)
}

function makeKnob() {
    const disc = byId('disc'),
        knob = byId('knob')
    let pointer = null
    const place = (x, y) => {
        knob.style.transform = `translate(${x}px, ${y}px)`
    }
    const steer = event => {
        if (event.pointerId !== pointer) return
        const box = disc.getBoundingClientRect(),
            reach = box.width / 2 - knob.offsetWidth / 2
        let x = event.clientX - box.left - box.width / 2,
            y = event.clientY - box.top - box.height / 2
        const distance = Math.hypot(x, y)
        if (distance > reach) {
            x *= reach / distance
            y *= reach / distance
        }
        place(x, y)
        const share = { pan: shareOf(x / reach), tilt: shareOf(y / reach) }
        drive.move(share.pan && Math.sign(x), share.tilt && -Math.sign(y), share)
    }
    const release = () => {
        if (pointer === null) return
        pointer = null
        knob.classList.remove('held')
        place(0, 0)
        drive.move(0, 0)
    }
    knob.addEventListener('pointerdown', event => {
        if (event.button !== 0) return
        pointer = event.pointerId
        knob.setPointerCapture(pointer)
        knob.classList.add('held')
        steer(event)
    })
    knob.addEventListener('pointermove', steer)
    for (const name of ['pointerup', 'pointercancel', 'lostpointercapture']) knob.addEventListener(name, release)
    knob.addEventListener('contextmenu', event => event.preventDefault())
    addEventListener('blur', release)
    addEventListener('pagehide', release)
}

function makeRockers() {
    for (const [id, act, direction] of [
        ['tele', drive.zoom, 1],
        ['wide', drive.zoom, -1],
        ['far', drive.focus, 1],
        ['near', drive.focus, -1],
    ])
        hold(
            byId(id),
            () => act(direction),
            () => act(0),
        )
}

function showAutoFocus() {
    byId('auto-focus').setAttribute('aria-pressed', valueOf('FocusAuto') === 1)
}

function makeButtons() {
    byId('home').addEventListener('click', drive.home)
    byId('stop').addEventListener('click', drive.stopAll)
    byId('auto-focus').addEventListener('click', event =>
        attempt(() => drive.autoFocus(event.currentTarget.getAttribute('aria-pressed') !== 'true')),
    )
    byId('one-push').addEventListener('click', async event => {
        const button = event.currentTarget
        button.disabled = true
        await attempt(drive.focusOnce)
        button.disabled = false
    })
    on('settings', showAutoFocus)
    on('setting', ({ setting }) => setting === 'FocusAuto' && showAutoFocus())
}

export function start() {
    makeArrows()
    makeKnob()
    makeRockers()
    makeButtons()
    new Panel([{ rows: SPEEDS }], byId('speeds'), drive.isSteering).shown = true
}
