// The page as a user meets it: node page.js CAMERA-BINARY FOLDER-OF-NODE-MODULES
import assert from 'node:assert/strict'
import { createRequire } from 'node:module'
import path from 'node:path'
import { Camera } from './camera.js'
import * as look from './look.js'

const [binary, tools] = process.argv.slice(2)
const { chromium } = createRequire(path.join(path.resolve(tools), '/'))('playwright-core')

const PASSWORD = 'a page of its own'
const DEADLINE_MS = 100000
const WAIT_MS = 12000
const STILL_MS = 250 // the slowest move makes a step in less
const PAN_SPEED = 1 // the item
const PAN_END = -2448 // steps, at the left end of travel
const PHONE = { viewport: { width: 390, height: 844 }, isMobile: true, hasTouch: true }

const camera = new Camera(binary)
const complaints = []
let isOutage = false // while the camera is away, the browser's own words about failed requests are right

/// A page that takes note of what goes wrong in it.
async function newPage(browser, options) {
    const context = await browser.newContext(options)
    const page = await context.newPage()
    page.setDefaultTimeout(WAIT_MS)
    page.on('pageerror', error => complaints.push(error.stack))
    page.on('console', message => {
        const { url } = message.location()
        const isRefusedLogin = url === new URL('/session', camera.url).href && message.text().includes('401')
        if (message.type() === 'error' && !isOutage && !isRefusedLogin) complaints.push(`${message.text()} ${url}`)
    })
    return page
}

async function until(what, isTrue) {
    const end = performance.now() + WAIT_MS
    while (!(await isTrue())) assert(performance.now() < end, `never came: ${what}`)
}

/// The head stands still: for a while all answers are the same.
async function untilStill() {
    let last = '',
        since = 0
    await until('the head stands', async () => {
        const position = await camera.position(),
            now = performance.now()
        if (position !== last) since = now
        last = position
        return now - since > STILL_MS
    })
    return last
}

/// Steps of pan in the camera's answer, 50 0w 0w 0w 0w ...: two's complement.
const panOf = answer => (parseInt([3, 5, 7, 9].map(n => answer[n]).join(''), 16) << 16) >> 16
const untilMoving = from => until('the head moves', async () => (await camera.position()) !== from)
const logIn = async page => {
    await page.fill('#login-user', 'admin')
    await page.fill('#login-password', PASSWORD)
    await page.click('#login-submit')
}
/// The running value of a setting, as the camera tells it.
const running = (page, name) =>
    page.evaluate(async key => (await (await fetch('/settings')).json()).find(row => row.key === key).value, name)
const setItem = (page, group, number, value) =>
    page.evaluate(
        ([path, body]) =>
            fetch(path, {
                method: 'POST',
                headers: { 'Content-Type': 'application/json' },
                body: JSON.stringify(body),
            }),
        [`/api/WEB_RPC_EVENT_GROUP_E_SET_${group}`, { s32EventType: number, s32Value0: value }],
    )
const item = (page, name) => page.locator(`[data-item="${name}"] :is(input, select, button)`)
/// The picture changes: its clock runs and its people walk.
async function isLive(page) {
    const before = await look.at(page)
    await until('a live picture', async () => {
        const now = await look.at(page)
        return now !== null && (before === null || look.difference(before, now) > 0)
    })
}

const STEPS = {
    async 'first start: a password is set, and the picture comes'(page) {
        await page.goto(camera.url)
        await page.waitForSelector('#login-again', { state: 'visible' })
        await page.fill('#login-password', PASSWORD)
        await page.fill('#login-again', 'something else')
        await page.click('#login-submit')
        await page.waitForFunction(() => document.querySelector('#login-error').textContent.includes('differ'))
        await page.fill('#login-again', PASSWORD)
        await page.click('#login-submit')
        await page.waitForSelector('#app', { state: 'visible' })
        await isLive(page)
    },

    async 'log out, a wrong password, log in'(page) {
        await page.click('#leave')
        await page.waitForSelector('#login', { state: 'visible' })
        await page.fill('#login-password', 'wrong password')
        await page.click('#login-submit')
        await page.waitForFunction(() => document.querySelector('#login-error').textContent !== '')
        await logIn(page)
        await page.waitForSelector('#app', { state: 'visible' })
        await isLive(page)
    },

    async 'a session that ends brings the login, then the place one was at'(page) {
        await page.click('#tab-colour')
        isOutage = true // the browser reports the refusals
        await page.context().clearCookies()
        await page.click('#home')
        await page.waitForSelector('#login', { state: 'visible' })
        await logIn(page)
        await page.waitForSelector('#panel-colour', { state: 'visible' })
        await isLive(page)
        isOutage = false
    },

    async 'the pad moves the head while it is held, and the picture shows it'(page) {
        const start = await untilStill(),
            before = await look.at(page)
        await page.hover('#disc [aria-label="Right"]')
        await page.mouse.down()
        await untilMoving(start)
        await until('another picture', async () => look.difference(before, await look.at(page)) > look.ANOTHER)
        await page.mouse.up()
        assert.notEqual(await untilStill(), start)
    },

    async 'the keyboard moves it; a page that loses the focus stops it'(page) {
        const start = await untilStill()
        await page.keyboard.down('ArrowLeft')
        await page.keyboard.down('ArrowUp')
        await untilMoving(start)
        await page.evaluate(() => window.dispatchEvent(new Event('blur')))
        await untilStill()
        await page.keyboard.up('ArrowLeft')
        await page.keyboard.up('ArrowUp')
    },

    async 'the joystick: its speeds are gone when it is let go'(page) {
        const speed = async () => page.locator('[data-item="PT-1"] output').textContent()
        const start = await untilStill(),
            before = await speed()
        await page.hover('#knob')
        const box = await page.locator('#knob').boundingBox()
        await page.mouse.down()
        await page.mouse.move(box.x + box.width / 2 + 34, box.y + box.height / 2 - 20, { steps: 12 })
        await untilMoving(start)
        await page.mouse.up()
        await untilStill()
        await until('the old speed', async () => String(await running(page, 'PanSpeed')) === before)
    },

    async 'a preset: store, go away, come back'(page) {
        const place = await untilStill()
        await page.keyboard.press('Shift+Digit2')
        const tile = page.locator('.preset[data-id="2"]')
        await tile.waitFor()
        await until('the thumbnail', () =>
            tile
                .locator('img')
                .evaluate(image => image.naturalWidth > 0)
                .catch(() => false),
        )
        await page.keyboard.down('ArrowRight')
        await untilMoving(place)
        await page.keyboard.up('ArrowRight')
        assert.notEqual(await untilStill(), place)
        await tile.locator('.recall').click()
        await until('the preset', async () => (await camera.position()) === place)
        await tile.hover()
        await tile.locator('.delete').click()
        await page.click('#ask-yes')
        await tile.waitFor({ state: 'detached' })
    },

    async 'a click in the picture brings that point to the middle'(page) {
        const start = await untilStill()
        const box = await page.locator('.view.main').boundingBox()
        await page.mouse.click(box.x + box.width * 0.7, box.y + box.height * 0.4)
        await untilMoving(start)
        const end = await untilStill()
        assert.notEqual(end, start)
    },

    async 'the exposure mode enables and disables its items'(page) {
        await page.click('#tab-exposure')
        await item(page, 'ISP-5').and(page.locator(':enabled')).waitFor()
        assert(await item(page, 'ISP-10').isDisabled())
        await item(page, 'ISP-4').selectOption('4')
        await item(page, 'ISP-10').and(page.locator(':enabled')).waitFor()
        await item(page, 'ISP-5').and(page.locator(':disabled')).waitFor()
        assert.equal(await camera.visca('09 04 39'), '5003')
    },

    async 'what another controller changes is seen'(page) {
        await camera.visca('01 04 39 00')
        await page.waitForFunction(() => document.querySelector('[data-item="ISP-4"] select').value === '0')
        await item(page, 'ISP-5').and(page.locator(':enabled')).waitFor()
        await item(page, 'ISP-10').and(page.locator(':disabled')).waitFor()
    },

    async 'a slider that is dragged makes no storm, and its last value holds'(page) {
        await page.click('#tab-picture')
        const slider = item(page, 'ISP-39')
        await slider.and(page.locator(':enabled')).waitFor()
        const sets = []
        let answer
        const isAnswered = new Promise(resolve => (answer = resolve))
        await page.route('**/*_SET_ISP', async route => {
            sets.push(route.request().postDataJSON().s32Value0)
            await isAnswered // a slow camera
            await route.continue()
        })
        const box = await slider.boundingBox()
        const middle = box.y + box.height / 2
        await page.mouse.move(box.x + box.width / 2, middle)
        await page.mouse.down()
        await page.mouse.move(box.x + 2, middle, { steps: 20 })
        await page.mouse.move(box.x + box.width - 1, middle, { steps: 20 })
        await page.mouse.up()
        await until('a request', () => sets.length > 0)
        assert.equal(sets.length, 1)
        answer()
        await until('the last value', async () => (await running(page, 'Brightness')) === 14)
        assert.equal(sets.length, 2)
        await page.unroute('**/*_SET_ISP')
    },

    async 'the remote opens the menu in the picture and walks it; the head stays'(page) {
        await page.click('#tab-remote')
        const before = await look.at(page, look.MENU)
        const isOpen = async () => look.difference(before, await look.at(page, look.MENU)) > look.ANOTHER
        await page.click('.key-menu')
        await until('the menu', isOpen)
        const position = await untilStill()
        const answer = page.waitForResponse('**/menu')
        await page.click('.key-down')
        assert((await (await answer).json()).taken, 'the menu takes the key')
        assert.deepEqual(await untilStill(), position)
        await page.click('.key-back')
        await until('no menu', async () => !(await isOpen()))
    },

    async 'a phone: everything within its width, the picture stays in sight'(page, browser) {
        const phone = await newPage(browser, PHONE)
        await phone.goto(camera.url)
        await logIn(phone)
        await phone.waitForSelector('#app', { state: 'visible' })
        await isLive(phone)
        for (const tab of ['exposure', 'lens', 'drive']) {
            await phone.tap(`#tab-${tab}`)
            assert(await phone.evaluate(() => document.documentElement.scrollWidth <= innerWidth), `${tab} is too wide`)
        }
        const start = await untilStill()
        const box = await phone.locator('#disc [aria-label="Left"]').boundingBox()
        const touch = await phone.context().newCDPSession(phone)
        const point = { x: box.x + box.width / 2, y: box.y + box.height / 2 }
        await touch.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints: [point] })
        await untilMoving(start)
        await phone.context().close() // with the finger on the key
        assert(panOf(await untilStill()) > PAN_END, 'went on to the end')
    },

    async 'the web server is killed in the middle of a move: the page comes back, and the stop arrives'(page) {
        await page.click('#tab-white')
        await camera.visca('01 06 04') // home: far from both ends
        await setItem(page, 'PT', PAN_SPEED, 1)
        const start = await untilStill()
        isOutage = true
        await page.keyboard.down('ArrowLeft')
        await untilMoving(start)
        process.kill(camera.webServer(), 'SIGKILL')
        await page.keyboard.up('ArrowLeft')
        await page.waitForSelector('body[data-link="down"]')
        await page.waitForSelector('body[data-link="up"]')
        await isLive(page)
        isOutage = false
        assert(panOf(await untilStill()) > PAN_END, 'went on to the end')
        assert(await page.isVisible('#panel-white'))
    },

    async 'the camera starts again: the page waits for it'(page) {
        isOutage = true
        const from = await look.at(page)
        await camera.stop()
        await page.waitForSelector('body[data-link="down"]')
        await page.waitForSelector('#stage-text', { state: 'visible' })
        await camera.start()
        await page.waitForSelector('body[data-link="up"]')
        await isLive(page)
        isOutage = false
        assert(await page.isVisible('#panel-white'), 'not where the user was')
        await item(page, 'ISP-22').and(page.locator(':enabled')).waitFor()
    },
}

async function run() {
    const browser = await chromium.launch({ executablePath: '/usr/bin/chromium', args: ['--no-sandbox'] })
    const page = await newPage(browser, { viewport: { width: 1280, height: 800 }, colorScheme: 'dark' })
    try {
        for (const [name, step] of Object.entries(STEPS)) {
            const start = performance.now()
            try {
                await step(page, browser)
                assert.deepEqual(complaints, [])
            } catch (error) {
                error.message = `${name}: ${error.message}`
                throw error
            }
            console.log(`ok ${name} (${Math.round(performance.now() - start)} ms)`)
        }
    } finally {
        await browser.close()
    }
}

/// Whatever hangs: the test does not.
const watchdog = setTimeout(() => {
    console.error('not done in time')
    camera.process?.kill('SIGKILL')
    process.exit(1)
}, DEADLINE_MS)

try {
    await camera.start()
    await run()
} catch (error) {
    console.error(error.stack)
    if (complaints.length) console.error('the page complained:', complaints)
    process.exitCode = 1
} finally {
    await camera.stop()
    camera.remove()
    clearTimeout(watchdog)
}
