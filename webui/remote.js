// The small infrared remote as buttons. The camera gets the same key events as from the remote itself, so a key that is
// held is held. While the menu is open, arrows and Back walk it.
import { call, post } from './api.js'
import { attempt, h, hold } from './dom.js'
import { REMOTE_KEYS } from './items.js'

const VIRTUAL_KEY = 1
const PRESS = 1,
    RELEASE = 0
// The camera ends a movement whose key it has not heard of for 5 s.
const AGAIN_MS = 2000
const MENU_STEP_MS = 180

let order = Promise.resolve() // keys go out one after the other
const inOrder = action => (order = order.then(() => attempt(action)))

const event = (code, method) =>
    call(
        'BUSINESS',
        { s32EventType: VIRTUAL_KEY, s32Id: 0, s32Value0: code, s32Value1: method },
        { keepalive: true },
    )

/// Holds one key: the menu's if the menu takes it, else the remote's.
function makeHold({ code, menu, once }) {
    let timer, pressed
    const press = async () => {
        if (menu && !pressed && (await post('/menu', { key: menu })).taken) return repeat(MENU_STEP_MS)
        if (code === undefined) return
        pressed = true
        await event(code, PRESS)
        if (!once) repeat(AGAIN_MS)
    }
    let held = false
    const repeat = delay => {
        if (held) timer = setTimeout(() => inOrder(press), delay)
    }
    return {
        start() {
            held = true
            pressed = false
            inOrder(press)
        },
        stop() {
            held = false
            clearTimeout(timer)
            inOrder(async () => {
                if (pressed) await event(code, RELEASE)
            })
        },
    }
}

export function makeRemotePanel(body) {
    const keys = REMOTE_KEYS.map(key => {
        const { text, label = text, place } = key
        const button = h('button', { type: 'button', class: `key-${place}`, 'aria-label': label, title: label }, text)
        const { start, stop } = makeHold(key)
        hold(button, start, stop)
        return button
    })
    body.append(
        h('div', { class: 'remote', role: 'group', 'aria-label': 'Remote' }, ...keys),
        h(
            'p',
            { class: 'dim' },
            'The keys of the infrared remote. Menu opens and closes the menu in the picture; while it is open, arrows, ' +
                'OK and Back walk it. Else OK goes home; held for three seconds, it stores the position as home.',
        ),
    )
    return {}
}
