// A live picture: packets of the preview channel, decoded and drawn on a canvas. The newest picture counts: what comes
// too fast is dropped up to the next key frame.

const HEADER = { size: 6, flags: 5, codec: 4, time: 16 }
const MAGIC = 0x50545a01
const H264 = 17
const KEY_FRAME = 1
const QUEUE_LIMIT = 6
const KEY_REQUEST_MS = 1000
const SILENCE_MS = 3000
const BACK_OFF_MS = [300, 600, 1200, 2500, 4000]

/// Why there can be no picture; undefined: there can.
export function obstacle() {
    if ('VideoDecoder' in window) return undefined
    if (!window.isSecureContext) {
        return 'This browser shows the live picture only over https, or at localhost. Open this page with https://.'
    }
    return 'This browser cannot show the live picture (it has no WebCodecs). Everything else works.'
}

const hex = byte => byte.toString(16).padStart(2, '0')

/// The codec string of a key frame, from its sequence parameter set; undefined: it has none.
function codecOf(packet) {
    for (let i = 0; i + 6 < packet.length; ++i) {
        if (packet[i] === 0 && packet[i + 1] === 0 && packet[i + 2] === 1 && (packet[i + 3] & 0x1f) === 7) {
            return `avc1.${[...packet.subarray(i + 4, i + 7)].map(hex).join('')}`
        }
    }
    return undefined
}

export class Picture {
    #canvas
    #context
    #path
    #socket = null
    #decoder = null
    #codec
    #needsKey = true
    #askedAt = -KEY_REQUEST_MS
    #frame = null
    #attempt = 0
    #retryTimer = 0
    #silenceTimer = 0
    #isWanted = false
    state = 'off'

    /// @param tell  called when the state changes: 'off', 'waiting', 'live', 'unknown codec'
    constructor(canvas, channel, tell) {
        this.#canvas = canvas
        this.#context = canvas.getContext('2d', { alpha: false })
        this.#path = `${location.protocol === 'https:' ? 'wss' : 'ws'}://${location.host}/preview/ch${channel}`
        this.tell = tell
    }

    set wanted(wanted) {
        if (wanted === this.#isWanted) return
        this.#isWanted = wanted
        this.#attempt = 0
        if (wanted) this.#open()
        else this.#close('off')
    }

    /// Tries again at once, when the next attempt waits.
    retry() {
        if (!this.#isWanted || this.#socket) return
        this.#attempt = 0
        this.#open()
    }

    #enter(state) {
        if (this.state === state) return
        this.state = state
        this.tell()
    }

    #open() {
        clearTimeout(this.#retryTimer)
        this.#enter('waiting')
        const socket = new WebSocket(this.#path)
        socket.binaryType = 'arraybuffer'
        socket.onmessage = ({ data }) => this.#take(data)
        socket.onclose = () => {
            if (socket === this.#socket) this.#lost()
        }
        this.#socket = socket
        this.#watchSilence()
    }

    #watchSilence() {
        clearTimeout(this.#silenceTimer)
        this.#silenceTimer = setTimeout(() => this.#lost(), SILENCE_MS)
    }

    #lost() {
        this.#close('waiting')
        const pause = BACK_OFF_MS[Math.min(this.#attempt++, BACK_OFF_MS.length - 1)]
        this.#retryTimer = setTimeout(() => this.#open(), pause)
    }

    #close(state) {
        clearTimeout(this.#retryTimer)
        clearTimeout(this.#silenceTimer)
        const socket = this.#socket
        this.#socket = null
        if (socket) {
            socket.onmessage = socket.onclose = null
            socket.close()
        }
        this.#dropDecoder()
        this.#enter(state)
    }

    #dropDecoder() {
        if (this.#decoder && this.#decoder.state !== 'closed') this.#decoder.close()
        this.#decoder = null
        this.#codec = undefined
        this.#needsKey = true
    }

    #askForKey() {
        this.#needsKey = true
        const now = performance.now()
        if (now - this.#askedAt < KEY_REQUEST_MS || this.#socket?.readyState !== WebSocket.OPEN) return
        this.#askedAt = now
        this.#socket.send('key')
    }

    #take(data) {
        this.#watchSilence()
        const head = new DataView(data)
        if (data.byteLength < 32 || head.getUint32(0) !== MAGIC) return
        if (head.getUint8(HEADER.codec) !== H264) return this.#enter('unknown codec')
        const isKey = (head.getUint8(HEADER.flags) & KEY_FRAME) !== 0
        const packet = new Uint8Array(data, head.getUint16(HEADER.size))
        if (isKey) this.#configure(packet)
        if (!this.#decoder || (this.#needsKey && !isKey)) return this.#askForKey()
        if (this.#decoder.decodeQueueSize > QUEUE_LIMIT && !isKey) return this.#askForKey()
        this.#needsKey = false
        this.#decoder.decode(
            new EncodedVideoChunk({
                type: isKey ? 'key' : 'delta',
                timestamp: Number(head.getBigUint64(HEADER.time)),
                data: packet,
            }),
        )
    }

    /// Makes the decoder for the stream that begins with this key frame, unless it is the one that runs.
    #configure(packet) {
        const codec = codecOf(packet)
        if (!codec || (this.#decoder && codec === this.#codec)) return
        this.#dropDecoder()
        const decoder = new VideoDecoder({
            output: frame => this.#show(frame),
            error: () => {
                if (decoder === this.#decoder) this.#dropDecoder()
            },
        })
        decoder.configure({ codec, optimizeForLatency: true })
        this.#decoder = decoder
        this.#codec = codec
    }

    /// Of the pictures between two repaints of the screen the newest is drawn.
    #show(frame) {
        if (!this.#frame) requestAnimationFrame(() => this.#draw())
        else this.#frame.close()
        this.#frame = frame
    }

    #draw() {
        const frame = this.#frame
        this.#frame = null
        const { displayWidth: width, displayHeight: height } = frame
        if (this.#canvas.width !== width) this.#canvas.width = width
        if (this.#canvas.height !== height) this.#canvas.height = height
        this.#context.drawImage(frame, 0, 0)
        frame.close()
        if (!this.#socket) return
        this.#attempt = 0
        this.#enter('live')
    }
}
