// Requests to the camera.
import { emit } from './signals.js'

/// A request that was not carried out; the message is for people. status 0: nothing answered.
class Refused extends Error {
    constructor(status, message, retryAfter = 0) {
        super(message)
        this.status = status
        this.retryAfter = retryAfter
    }
}

const DEADLINE_MS = 8000
const PLAIN_WORDS = {
    0: 'The camera cannot be reached.',
    401: 'Please log in.',
    403: 'Your user may not do this.',
    404: 'The camera does not know this.',
    429: 'Too many attempts. Please wait a moment.',
    502: 'The camera does not answer.',
    503: 'The camera is busy or starting.',
    504: 'The camera does not answer.',
}

const asSentence = text => `${text[0].toUpperCase()}${text.slice(1)}${/[.!?]$/.test(text) ? '' : '.'}`

async function refusal(response) {
    let text
    try {
        text = (await response.json()).error
    } catch {
        /* no sentence of the camera's */
    }
    text ||= PLAIN_WORDS[response.status] ?? `The camera refused this (${response.status}).`
    return new Refused(response.status, asSentence(text), Number(response.headers.get('Retry-After')) || 0)
}

/// @param keepalive  goes out even while the page is being closed
export async function request(method, path, body, { keepalive = false } = {}) {
    const options = { method, keepalive, cache: 'no-store', headers: { Accept: 'application/json' } }
    options.signal = AbortSignal.timeout(DEADLINE_MS)
    if (body !== undefined) {
        options.headers['Content-Type'] = 'application/json'
        options.body = JSON.stringify(body)
    }
    let response
    try {
        response = await fetch(path, options)
    } catch {
        throw new Refused(0, PLAIN_WORDS[0])
    }
    if (!response.ok) {
        const error = await refusal(response)
        if (error.status === 401 && path !== '/session') emit('leave')
        throw error
    }
    const text = await response.text()
    return text ? JSON.parse(text) : {}
}

export const get = path => request('GET', path)
export const post = (path, body = {}, options) => request('POST', path, body, options)
export const remove = path => request('DELETE', path)

/// Calls an event of the camera, e.g. call('SET_PT', {...}).
export const call = (event, fields, options) => post(`/api/WEB_RPC_EVENT_GROUP_E_${event}`, fields, options)

/// Sends values one at a time; of those that come while a request is under way only the newest goes out.
export class Latest {
    #send
    #done
    #failed
    #waiting = []
    #running = null
    busy = false

    /// @param done    called with answer and value when the last value has been sent
    /// @param failed  called with error and value
    constructor(send, { done = () => {}, failed = () => {} } = {}) {
        this.#send = send
        this.#done = done
        this.#failed = failed
    }

    /// @return when nothing waits any more
    push(value) {
        this.#waiting = [value]
        if (!this.busy) this.#running = this.#run()
        return this.#running
    }

    async #run() {
        this.busy = true
        let finish = () => {}
        while (this.#waiting.length) {
            const value = this.#waiting.pop()
            try {
                const answer = await this.#send(value)
                finish = () => this.#done(answer, value)
            } catch (error) {
                finish = () => this.#failed(error, value)
            }
        }
        this.busy = false
        finish()
    }
}
