// Ranges, defaults and running values of all settings, kept up to date by the event stream.
import { get } from './api.js'
import { emit, on } from './signals.js'

const rows = new Map()

/// The shutter has one setting for each output frame rate; the item works with that of the present one.
const RATES = [60, 60, 50, 30, 60, 25, 24, 60] // by the value of "Fps"
const BY_RATE = ['ShutterSpeed', 'ShutterValue']

/// The name under which the camera keeps a setting now.
export function keyOf(name) {
    return BY_RATE.includes(name) ? `${name}Fps${RATES[valueOf('Fps') ?? 0] ?? 60}` : name
}

const find = (name, pipe) => rows.get(`${keyOf(name)}/${pipe}`) ?? rows.get(`${keyOf(name)}/0`)

/// @return {min, max, step, default}; a setting the camera does not tell has a range of 0 to 1
export const rangeOf = (name, pipe = 0) => find(name, pipe) ?? { min: 0, max: 1, step: 1, default: 0 }

/// The running value; undefined: not told
export const valueOf = (name, pipe = 0) => rows.get(`${BY_RATE.includes(name) ? keyOf(name) : name}/${pipe}`)?.value

/// The setting behind a row of the item table; speeds have one for each speed scale.
export const settingOf = row => (row.fineKey && valueOf('SpeedMode') === 1 ? row.fineKey : row.key)

export async function load() {
    for (const row of await get('/settings')) rows.set(`${row.key}/${row.pipe ?? 0}`, row)
    emit('settings')
}

on('setting', ({ setting, pipe, value }) => {
    const row = rows.get(`${setting}/${pipe ?? 0}`)
    if (row) row.value = value
})
