// The event stream of the camera, and what it says about the link.
import { get } from './api.js'
import { emit } from './signals.js'

const BACK_OFF_MS = [400, 800, 1500, 3000, 5000]

let source = null
let run = 0 // grows when the stream is opened or closed: what belongs to an earlier one is over
let attempts = 0
let state = ''

function enter(next) {
    if (state === next) return
    state = next
    emit('link', state)
}

function take({ data }) {
    const event = JSON.parse(data)
    if ('setting' in event) emit('setting', event)
    else if ('preset' in event) emit('preset', event.preset)
    else if ('position' in event) emit('position', event.position)
    else if ('camera' in event) enter(event.camera ? 'up' : 'gone')
}

/// The stream itself does not say why it cannot be had: a lost login, a camera that is gone, nothing there.
async function connect(mine) {
    try {
        const session = await get('/session')
        if (mine !== run) return
        if (session.user) listen(mine, session.camera)
        else emit('leave')
    } catch {
        if (mine !== run) return
        enter('down')
        later(mine)
    }
}

function listen(mine, hasCamera) {
    source = new EventSource('/events')
    source.onopen = () => {
        attempts = 0
        enter(hasCamera ? 'up' : 'gone')
    }
    source.onmessage = take
    source.onerror = () => {
        source.close()
        if (mine === run) later(mine)
    }
}

function later(mine) {
    const pause = BACK_OFF_MS[Math.min(attempts++, BACK_OFF_MS.length - 1)]
    setTimeout(() => mine === run && connect(mine), pause)
}

export function open() {
    close()
    connect(run)
}

export function close() {
    ++run
    source?.close()
    source = null
    state = ''
}
