// The page: who is logged in decides what is seen.
import { get, remove } from './api.js'
import { attempt, byId } from './dom.js'
import { stopOwn } from './drive.js'
import * as events from './events.js'
import * as keyboard from './keyboard.js'
import * as login from './login.js'
import * as pad from './pad.js'
import * as presets from './presets.js'
import { load } from './settings.js'
import { emit, on } from './signals.js'
import * as stage from './stage.js'
import * as tabs from './tabs.js'

const RETRY_MS = 1000
const LINK_TEXTS = { up: 'Connected', gone: 'Camera gone', down: 'No connection' }
let isBuilt = false

function show(view) {
    document.body.dataset.view = view
    byId('login').hidden = view !== 'login'
    byId('app').hidden = view !== 'app'
    for (const id of ['position', 'help-open', 'leave']) byId(id).hidden = view !== 'app'
    if (view !== 'app') showLink('')
}

function showLink(state) {
    byId('link').textContent = LINK_TEXTS[state] ?? ''
    document.body.dataset.link = state
}

function showPosition({ pan, tilt, zoom }) {
    byId('pan').textContent = `${pan.toFixed(1)}°`
    byId('tilt').textContent = `${tilt.toFixed(1)}°`
    byId('zoom').textContent = `${zoom.toFixed(1)}×`
}

function build() {
    if (isBuilt) return
    isBuilt = true
    stage.start()
    pad.start()
    presets.start()
    tabs.start()
    keyboard.start()
}

async function enter() {
    let session
    try {
        session = await get('/session')
    } catch {
        showLink('down')
        setTimeout(enter, RETRY_MS)
        return
    }
    if (!session.user) {
        show('login')
        return login.show(session.setup)
    }
    document.body.dataset.role = session.role
    byId('leave').title = `Log out ${session.user}`
    byId('version').textContent = `Camera software ${session.version}`
    show('app')
    build()
    const isViewer = session.role === 'viewer'
    for (const part of document.querySelectorAll('.panel:not(#panel-users)')) part.inert = isViewer
    byId('watching').hidden = !isViewer
    emit('session', session)
    events.open()
}

/// Ranges first: what is read afterwards is shown within them.
async function refresh() {
    try {
        const [position] = await Promise.all([get('/position'), load()])
        showPosition(position)
        emit('refresh')
    } catch {
        setTimeout(() => document.body.dataset.link === 'up' && refresh(), RETRY_MS)
    }
}

async function leave() {
    await stopOwn()
    await attempt(() => remove('/session'))
    emit('leave')
}

login.start(enter)
byId('leave').addEventListener('click', leave)
on('position', showPosition)
on('link', state => {
    showLink(state)
    if (state === 'up') refresh()
})
on('leave', () => {
    if (document.body.dataset.view === 'login') return
    events.close()
    document.querySelectorAll('dialog[open]').forEach(dialog => dialog.close())
    enter()
})
enter()
