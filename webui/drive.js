// Moves of head, zoom and focus. One request of each unit is under way at a time and the newest wish wins; a stop is
// repeated until the camera has it.
import { call, Latest } from './api.js'
import { toast } from './dom.js'
import { rangeOf, settingOf, valueOf } from './settings.js'
import { emit } from './signals.js'
import { SPEEDS } from './items.js'

const MOVE_ITEM = 9,
    PRESET_ITEM = 10,
    ZOOM_ITEM = 11
const FOCUS_ITEM = 6,
    AUTO_FOCUS_ITEM = 5
const HOME = -2
const STOP_RETRY_MS = 300,
    STOP_RETRIES = 40

const setPt = (item, value0, value1 = 0) =>
    call('SET_PT', { s32EventType: item, s32Value0: value0, s32Value1: value1 }, { keepalive: true })
const setAf = (item, value0) => call('SET_AF', { s32EventType: item, s32Value0: value0 }, { keepalive: true })

/// A unit that runs while its wish is not at rest.
class Unit {
    #sender
    #retries = 0
    isMoving = false

    constructor(send, isRest) {
        this.send = send
        this.isRest = isRest
        this.#sender = new Latest(send, {
            done: () => {
                this.#retries = 0
            },
            failed: (error, wish) => this.#failed(error, wish),
        })
    }

    wish(wish) {
        this.isMoving = !this.isRest(wish)
        return this.#sender.push(wish)
    }

    #failed(error, wish) {
        const isUseless = error.status === 401 || error.status === 403
        if (this.isRest(wish) && !this.isMoving && !isUseless && this.#retries++ < STOP_RETRIES) {
            setTimeout(() => this.isMoving || this.#sender.push(wish), STOP_RETRY_MS)
        } else if (error.status !== 401) {
            toast(error.message)
        }
    }
}

// Pan and tilt move at the speeds that are set as settings. The joystick asks for shares of them: they are set for the
// time of the move, and put back when it ends.

const FULL = { pan: 1, tilt: 1 }
const axes = { pan: { row: SPEEDS[0], wanted: null }, tilt: { row: SPEEDS[1], wanted: null } }

async function setSpeed(axis, share) {
    const { row } = axis
    const key = settingOf(row)
    if (share === 0 || (share === 1 && axis.wanted === null)) return
    axis.wanted ??= valueOf(key) ?? rangeOf(key).default
    const level = Math.max(rangeOf(key).min, Math.round(axis.wanted * share))
    if (axis.level !== level) await setPt(row.item, level)
    axis.level = level
    if (share === 1) axis.wanted = axis.level = null
}

/// Whether the joystick has changed the speeds for the time of its move.
export const isSteering = () => axes.pan.wanted !== null || axes.tilt.wanted !== null

async function sendMove({ x, y, share }) {
    if (x === HOME) return setPt(MOVE_ITEM, HOME, HOME)
    if (x === 0 && y === 0) {
        await setPt(MOVE_ITEM, 0, 0)
        await Promise.all([setSpeed(axes.pan, 1), setSpeed(axes.tilt, 1)])
        return
    }
    await Promise.all([setSpeed(axes.pan, share.pan), setSpeed(axes.tilt, share.tilt)])
    await setPt(MOVE_ITEM, x, y)
}

const head = new Unit(sendMove, ({ x, y }) => x === 0 && y === 0)
const lens = new Unit(
    direction => setPt(ZOOM_ITEM, direction),
    direction => direction === 0,
)
const focusing = new Unit(sendFocus, direction => direction === 0)

async function sendFocus(direction) {
    if (direction === 0) return setAf(FOCUS_ITEM, 0)
    if (valueOf('FocusAuto') === 1) await setAf(AUTO_FOCUS_ITEM, 0)
    return setAf(FOCUS_ITEM, direction * Math.max(1, valueOf('FocusSpd') ?? 4))
}

let last = ''

/// @param x, y   -1, 0, 1: right and up are positive
/// @param share  of the set speeds, each 0 to 1
export function move(x, y, share = FULL) {
    const wish = { x, y, share }
    if (JSON.stringify(wish) === last) return
    last = JSON.stringify(wish)
    if (x || y) emit('moved')
    return head.wish(wish)
}

export const zoom = direction => lens.wish(direction)
export const focus = direction => focusing.wish(direction)

export function home() {
    last = ''
    emit('moved')
    head.wish({ x: HOME, y: HOME, share: FULL })
    head.isMoving = false
}

export const recallPreset = id => setPt(PRESET_ITEM, 1, id)
export const storePreset = id => setPt(PRESET_ITEM, 0, id)
export const deletePreset = id => setPt(PRESET_ITEM, 2, id)

const FOCUS_ONCE_MS = 1200

export const autoFocus = isOn => setAf(AUTO_FOCUS_ITEM, isOn ? 1 : 0)

/// The focus follows for a moment, then holds.
export async function focusOnce() {
    await autoFocus(true)
    await new Promise(resolve => setTimeout(resolve, FOCUS_ONCE_MS))
    await autoFocus(false)
}

/// Everything stops, whoever set it going.
export function stopAll() {
    last = ''
    move(0, 0)
    zoom(0)
    focus(0)
}

/// Ends what this page has set going. @return when the camera knows
export function stopOwn() {
    return Promise.all([head.isMoving && move(0, 0), lens.isMoving && zoom(0), focusing.isMoving && focus(0)])
}

/// The page goes away: nothing can wait for an answer.
function stopForGood() {
    for (const [unit, rest] of [
        [head, { x: 0, y: 0 }],
        [lens, 0],
        [focusing, 0],
    ]) {
        if (unit.isMoving) unit.send(rest).catch(() => {})
        unit.isMoving = false
    }
    for (const { row, wanted } of Object.values(axes)) if (wanted !== null) setPt(row.item, wanted).catch(() => {})
}

addEventListener('blur', stopOwn)
addEventListener('pagehide', stopForGood)
document.addEventListener('visibilitychange', () => document.hidden && stopOwn())
