// The live pictures: one large, the other in its corner; full screen; a click centres a point.
import { post } from './api.js'
import { attempt, byId } from './dom.js'
import { obstacle, Picture } from './picture.js'
import { emit, on } from './signals.js'

const NAMES = { 1: 'Close-up', 2: 'Panorama' }
const GONE_AFTER_MS = 1500
const AIM_MS = 700

const views = {}
let main = 1
let hasInset = matchMedia('(min-width: 700px)').matches
let isAwake = false
let linkState = 'up'
let hadPicture = false
let goneTimer = 0

const other = () => 3 - main

function arrange() {
    for (const [channel, { element, picture }] of Object.entries(views)) {
        const isMain = Number(channel) === main
        element.classList.toggle('main', isMain)
        element.classList.toggle('inset', !isMain)
        element.hidden = !isMain && !hasInset
        picture.wanted = isAwake && !element.hidden && !document.hidden && !obstacle()
    }
    byId('stage-name').textContent = NAMES[main]
    byId('inset').setAttribute('aria-pressed', hasInset)
    byId('stage').classList.toggle('aimable', main === 1)
}

function textOf(state) {
    if (linkState === 'gone') return 'The camera is gone. Waiting for it to come back …'
    if (linkState === 'down') return 'Nothing answers at this address. Trying again …'
    if (state === 'unknown codec') return 'The sub stream is not H.264, which this page needs.'
    return hadPicture ? 'The picture has stopped. Waiting for it …' : 'No picture yet …'
}

/// A short gap is not worth a word.
function showState() {
    const { state } = views[main].picture
    const blocked = obstacle()
    const isGood = state === 'live' && linkState === 'up'
    hadPicture ||= state === 'live'
    clearTimeout(goneTimer)
    const show = () => {
        const text = byId('stage-text')
        text.hidden = isGood && !blocked
        text.textContent = blocked ?? textOf(state)
        byId('stage').classList.toggle('stale', !isGood)
    }
    if (isGood || blocked || linkState !== 'up') show()
    else goneTimer = setTimeout(show, GONE_AFTER_MS)
}

function swap() {
    main = other()
    arrange()
    showState()
}

/// Where in the picture a click was, 0 to 1 from left and top; undefined: beside it.
function pointOf(event, canvas) {
    const box = canvas.getBoundingClientRect()
    const scale = Math.min(box.width / canvas.width, box.height / canvas.height)
    const width = canvas.width * scale,
        height = canvas.height * scale
    const x = (event.clientX - box.left - (box.width - width) / 2) / width
    const y = (event.clientY - box.top - (box.height - height) / 2) / height
    return x >= 0 && x <= 1 && y >= 0 && y <= 1 ? { x, y } : undefined
}

function centre(event) {
    const { element, picture } = views[1]
    if (picture.state !== 'live' || document.body.dataset.role === 'viewer') return
    const point = pointOf(event, element.querySelector('canvas'))
    if (!point) return
    showAim(event)
    emit('moved')
    attempt(() => post('/centre', point))
}

function showAim(event) {
    const aim = byId('aim'),
        box = byId('stage').getBoundingClientRect()
    aim.style.left = `${event.clientX - box.left}px`
    aim.style.top = `${event.clientY - box.top}px`
    aim.hidden = false
    clearTimeout(showAim.timer)
    showAim.timer = setTimeout(() => {
        aim.hidden = true
    }, AIM_MS)
}

export function toggleFullScreen() {
    if (document.fullscreenElement) document.exitFullscreen()
    else document.documentElement.requestFullscreen?.().catch(() => {}) // not the stage: messages stay visible
}

export function start() {
    for (const element of document.querySelectorAll('.view')) {
        const channel = Number(element.dataset.channel)
        views[channel] = { element, picture: new Picture(element.querySelector('canvas'), channel, showState) }
        element.addEventListener('click', event => {
            if (channel !== main) swap()
            else if (channel === 1) centre(event)
        })
    }
    byId('swap').addEventListener('click', swap)
    byId('inset').addEventListener('click', () => {
        hasInset = !hasInset
        arrange()
    })
    byId('full').hidden = !document.fullscreenEnabled
    byId('full').addEventListener('click', toggleFullScreen)
    document.addEventListener('visibilitychange', arrange)
    arrange()
    on('refresh', () => {
        isAwake = true
        arrange()
        Object.values(views).forEach(({ picture }) => picture.retry())
    })
    on('leave', () => {
        isAwake = false
        arrange()
    })
    on('link', state => {
        linkState = state
        showState()
    })
}
