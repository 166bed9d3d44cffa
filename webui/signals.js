// What the parts of the page tell each other.
//
//   refresh            read everything from the camera again: after a login, and when the camera is back
//   leave              the session has ended
//   link   state       'up', 'gone' (the camera does not answer), 'down' (nothing answers)
//   setting {setting, pipe, value}, preset id, position {pan, tilt, zoom}: as the event stream tells them
//   moved              this page has set the head going, other than by a preset
//   session {user, role}, settings (the ranges are read), reset (image settings were set back)

const listeners = new Map()

export function on(name, listener) {
    if (!listeners.has(name)) listeners.set(name, new Set())
    listeners.get(name).add(listener)
}

export function emit(name, value) {
    for (const listener of listeners.get(name) ?? []) listener(value)
}
