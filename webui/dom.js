// Small helpers for elements.

export const byId = id => document.getElementById(id)

/// Makes an element: h('button', {class: 'x', onclick: f, 'aria-label': 'y'}, children...)
export function h(tag, attributes = {}, ...children) {
    const element = document.createElement(tag)
    for (const [name, value] of Object.entries(attributes)) {
        if (name.startsWith('on')) element.addEventListener(name.slice(2), value)
        else if (name.startsWith('aria-')) element.setAttribute(name, String(value))
        else if (value === true) element.setAttribute(name, '')
        else if (value !== false && value !== undefined) element.setAttribute(name, value)
    }
    element.append(...children)
    return element
}

/// While a button is held, by pointer or by Enter or Space: start once, then stop exactly once, whatever ends it.
export function hold(button, start, stop) {
    let held = false
    const begin = () => {
        if (held) return
        held = true
        button.classList.add('held')
        start()
    }
    const end = () => {
        if (!held) return
        held = false
        button.classList.remove('held')
        stop()
    }
    button.addEventListener('pointerdown', event => {
        if (event.button !== 0) return
        button.setPointerCapture(event.pointerId)
        begin()
    })
    for (const name of ['pointerup', 'pointercancel', 'lostpointercapture', 'blur']) button.addEventListener(name, end)
    button.addEventListener('contextmenu', event => event.preventDefault())
    button.addEventListener('keydown', event => {
        if (event.key !== 'Enter' && event.key !== ' ') return
        event.preventDefault()
        event.stopPropagation()
        if (!event.repeat) begin()
    })
    button.addEventListener('keyup', event => {
        if (event.key === 'Enter' || event.key === ' ') end()
    })
    addEventListener('blur', end)
    addEventListener('pagehide', end)
    document.addEventListener('visibilitychange', () => document.hidden && end())
}

const TOAST_MS = 5000
let lastToast = { text: '', time: 0 }

/// A short message at the bottom. The same one is not shown twice in a row; of notes only the newest stays.
export function toast(text, kind = 'error') {
    const now = performance.now()
    if (text === lastToast.text && now - lastToast.time < TOAST_MS) return
    lastToast = { text, time: now }
    const element = h('p', { class: `toast ${kind}` }, text)
    if (kind === 'note')
        byId('toasts')
            .querySelectorAll('.note')
            .forEach(note => note.remove())
    byId('toasts').append(element)
    setTimeout(() => element.remove(), TOAST_MS)
}

/// Runs an action and tells the user when it is refused. @return whether it was carried out
export async function attempt(action) {
    try {
        await action()
        return true
    } catch (error) {
        if (error.status !== 401) toast(error.message)
        return false
    }
}

/// Asks before something that cannot be taken back. @return whether the user agreed
export function ask(text, yes) {
    const dialog = byId('ask')
    byId('ask-text').textContent = text
    byId('ask-yes').textContent = yes
    dialog.returnValue = ''
    dialog.showModal()
    return new Promise(resolve => {
        dialog.addEventListener('close', () => resolve(dialog.returnValue === 'yes'), { once: true })
    })
}
