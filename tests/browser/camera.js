// A camera of the test's own: its process, and a VISCA controller beside the browser.
import { spawn } from 'node:child_process'
import dgram from 'node:dgram'
import fs from 'node:fs'
import os from 'node:os'
import path from 'node:path'
import readline from 'node:readline'

const VISCA_PORT = 1259
const START_MS = 20000
const ANSWER_MS = 2000
const END_MS = 10000

/// Loopback has many addresses; each camera takes one for its ports.
const ADDRESS = `127.0.${100 + ((process.pid >> 7) % 100)}.${2 + (process.pid & 127)}`

export class Camera {
    address = ADDRESS
    root = fs.mkdtempSync(path.join(os.tmpdir(), 'camera-page-'))

    constructor(binary) {
        this.binary = binary
    }

    /// @return when it is ready; `url` is its page then
    start() {
        const env = {
            ...process.env,
            CAMERA_ROOT: this.root,
            CAMERA_BIND: ADDRESS,
            CAMERA_TRACE: '0',
            CAMERA_INPUT: '',
        }
        this.process = spawn(this.binary, [], { env, stdio: ['ignore', 'pipe', 'pipe'] })
        this.ended = new Promise(resolve => this.process.once('exit', resolve))
        return new Promise((resolve, reject) => {
            const timer = setTimeout(() => reject(new Error('the camera tells no web page')), START_MS)
            this.ended.then(status => reject(new Error(`the camera ended with ${status}`)))
            const take = line => {
                const page = /^(http:\S+) web page| web page at (http:\S+)/.exec(line) // the list, or later the log
                if (!page) return
                clearTimeout(timer)
                this.url = page[1] ?? page[2]
                resolve()
            }
            for (const input of [this.process.stdout, this.process.stderr])
                readline.createInterface({ input }).on('line', take)
        })
    }

    async stop() {
        if (!this.process) return
        this.process.kill('SIGTERM')
        const timer = setTimeout(() => this.process.kill('SIGKILL'), END_MS)
        await this.ended
        clearTimeout(timer)
        this.process = null
    }

    remove() {
        fs.rmSync(this.root, { recursive: true, force: true })
    }

    /// The process of the web server: the child of that name.
    webServer() {
        const children = fs
            .readFileSync(`/proc/${this.process.pid}/task/${this.process.pid}/children`, 'utf8')
            .split(' ')
        const others = fs
            .readdirSync(`/proc/${this.process.pid}/task`)
            .flatMap(task => fs.readFileSync(`/proc/${this.process.pid}/task/${task}/children`, 'utf8').split(' '))
        return [...children, ...others]
            .filter(Boolean)
            .map(Number)
            .find(pid => fs.readFileSync(`/proc/${pid}/comm`, 'utf8').trim() === 'camera-web')
    }

    /// Sends one packet, in hexadecimal and without frame bytes. @return the last answer to it, the same way
    visca(packet) {
        const socket = dgram.createSocket('udp4')
        return new Promise((resolve, reject) => {
            const timer = setTimeout(() => {
                socket.close()
                reject(new Error(`no answer to VISCA ${packet}`))
            }, ANSWER_MS)
            socket.on('message', data => {
                const isAcknowledgement = (data[1] & 0xf0) === 0x40
                if (isAcknowledgement) return
                clearTimeout(timer)
                socket.close()
                resolve(data.subarray(1, -1).toString('hex'))
            })
            socket.send(Buffer.from(`81${packet.replaceAll(' ', '')}ff`, 'hex'), VISCA_PORT, ADDRESS)
        })
    }

    /// Where the head points, as the camera itself answers.
    position() {
        return this.visca('09 06 12')
    }
}
