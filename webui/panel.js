// A panel: rows of the item table, bound to the camera.
import { call, Latest } from './api.js'
import { makeControl } from './controls.js'
import { ask, h, toast } from './dom.js'
import { keyOf, load, settingOf, valueOf } from './settings.js'
import { emit, on } from './signals.js'

const panels = new Set()
const PARALLEL_READS = 4

/// One row: reads and sets its item, and shows it.
class Item {
    #panel
    #sender
    #control

    constructor(row, pipe, panel) {
        this.row = row
        this.pipe = row.group === 'ISP' ? pipe : 0
        this.#panel = panel
        this.#control = makeControl(row, this.pipe, value => this.#change(value))
        this.#sender = new Latest(value => this.#call('SET', value), {
            done: answer => this.#afterSet(answer),
            failed: error => this.#refused(error),
        })
        this.element = h(
            'div',
            { class: `row ${row.kind}-row`, 'data-item': `${row.group}-${row.item}` },
            h('label', { for: this.#control.id }, row.label),
            this.#control.element,
        )
        this.#enable(false)
        const known = row.key && valueOf(row.key, this.pipe)
        if (known !== undefined) this.show(known)
    }

    get #isMoving() {
        return this.#sender.busy || this.#control.busy
    }

    #call(verb, value = 0) {
        const { group, item } = this.row
        return call(`${verb}_${group}`, { s32EventType: item, s32Id: this.pipe, s32Value0: value })
    }

    #enable(enabled) {
        this.element.classList.toggle('off', !enabled)
        this.#control.enable(enabled)
    }

    async #change(value) {
        if (this.row.confirm && !(await ask(this.row.confirm, this.row.text))) return
        this.value = value
        this.#sender.push(value)
    }

    async #refused(error) {
        if (error.status !== 401) toast(error.message)
        await this.#panel.read([this])
    }

    /// The camera's answer says what else has changed. The item itself is read as well: the camera keeps what it had
    /// when a value was outside its range.
    async #afterSet(answer) {
        const bitmap = BigInt(answer.s32SideEffectBitmap ?? 0)
        if (this.row.reset) {
            await load()
            emit('reset')
            return this.#panel.read(this.#panel.items)
        }
        await this.#panel.read([this])
        await readOthers(this, number => Boolean((bitmap >> BigInt(number)) & 1n) || this.row.affects?.includes(number))
    }

    #isNow([number, value]) {
        return this.#panel.valueOf(this.row.group, number) === value
    }

    async read() {
        const { row } = this
        if (row.kind === 'button' && row.when === undefined) return this.#enable(true)
        if (row.when) return this.#enable(this.#isNow(row.when))
        const answer = await this.#call('GET')
        if (this.#isMoving) return
        this.show(answer.s32Value)
        this.#enable(answer.bEnabled && (!row.also || this.#isNow(row.also)))
    }

    show(value) {
        this.value = value
        this.#control.show(value)
    }

    /// Somebody changed the setting behind the item.
    heard(value) {
        if (this.#isMoving || this.value === value || this.#panel.isMuted()) return
        this.show(value)
        if (this.row.affects) readOthers(this, number => this.row.affects.includes(number))
    }

    hears(key, pipe) {
        const own = settingOf(this.row)
        return own !== undefined && keyOf(own) === key && pipe === this.pipe
    }
}

export class Panel {
    items = []
    #pipe = 0
    #isShown = false
    #isStale = true

    /// @param sections  of the item table
    /// @param isMuted   while true, changes by others are not shown
    constructor(sections, body, isMuted = () => false) {
        this.sections = sections
        this.isMuted = isMuted
        this.body = body
        panels.add(this)
        this.#build()
    }

    #build() {
        const isHere = part => this.#pipe === 0 || part.wide !== false
        this.items = []
        const made = this.sections.filter(isHere).map(section => {
            const items = section.rows.filter(isHere).map(row => new Item(row, this.#pipe, this))
            this.items.push(...items)
            return h(
                'div',
                { class: 'rows' },
                ...(section.title ? [h('h3', {}, section.title)] : []),
                ...items.map(item => item.element),
            )
        })
        this.body.replaceChildren(...made)
    }

    set pipe(pipe) {
        if (pipe === this.#pipe) return
        this.#pipe = pipe
        this.#build()
        this.refresh()
    }

    set shown(shown) {
        this.#isShown = shown
        if (shown && this.#isStale) this.refresh()
    }

    valueOf = (group, number) => this.items.find(({ row }) => row.group === group && row.item === number)?.value

    /// Reads everything; a panel that is not seen does so when it is.
    refresh() {
        this.#isStale = !this.#isShown
        if (this.#isShown) this.read(this.items)
    }

    /// Reads some items, a few at a time.
    async read(items) {
        const waiting = [...new Set(items)].sort((a, b) => Number(!!a.row.when) - Number(!!b.row.when))
        const work = async () => {
            for (let item; (item = waiting.shift());) await item.read()
        }
        try {
            await Promise.all(Array.from({ length: PARALLEL_READS }, work))
        } catch (error) {
            this.#isStale = true
            if (error.status !== 401 && error.status !== 0) toast(error.message)
        }
    }

    refreshSome(items) {
        if (!this.#isShown) this.#isStale = true
        else if (items.length) return this.read(items)
    }
}

/// Reads the items that follow from one, on every panel, by their numbers in its group.
async function readOthers(cause, isMeant) {
    const { group } = cause.row
    const follows = item =>
        item !== cause && item.row.group === group && item.pipe === cause.pipe && isMeant(item.row.item)
    await Promise.all([...panels].map(panel => panel.refreshSome(panel.items.filter(follows))))
}

on('refresh', () => panels.forEach(panel => panel.refresh()))
on('setting', ({ setting, pipe, value }) => {
    for (const panel of panels) {
        for (const item of panel.items) if (item.hears(setting, pipe ?? 0)) item.heard(value)
    }
})
