// The way in: the first password, the login.
import { post } from './api.js'
import { byId } from './dom.js'

const SHORTEST = 8
let isSetup = false
let enter = () => {}

export function show(setup) {
    isSetup = setup
    byId('login-title').textContent = setup ? 'Welcome' : 'Log in'
    byId('login-hint').textContent = setup
        ? `Nobody has used this camera yet. Choose the password of its first user, of at least ${SHORTEST} characters.`
        : ''
    byId('login-submit').textContent = setup ? 'Start' : 'Log in'
    byId('login-again-row').hidden = !setup
    byId('login-again').required = setup
    byId('login-password').autocomplete = setup ? 'new-password' : 'current-password'
    byId('login-error').textContent = ''
    if (setup && !byId('login-user').value) byId('login-user').value = 'admin'
    byId(byId('login-user').value ? 'login-password' : 'login-user').focus()
}

function complaint(user, password) {
    if (!user) return 'Please type a user name.'
    if (!isSetup) return ''
    if (password.length < SHORTEST) return `The password needs at least ${SHORTEST} characters.`
    return password === byId('login-again').value ? '' : 'The two passwords differ.'
}

async function submit(event) {
    event.preventDefault()
    const user = byId('login-user').value.trim(),
        password = byId('login-password').value
    const error = byId('login-error'),
        button = byId('login-submit')
    error.textContent = complaint(user, password)
    if (error.textContent) return
    button.disabled = true
    try {
        await post(isSetup ? '/setup' : '/session', { user, password })
        byId('login-password').value = byId('login-again').value = ''
        await enter()
    } catch (refused) {
        if (refused.status === 409) return enter()
        error.textContent = refused.retryAfter
            ? `${refused.message} Try again in ${refused.retryAfter} seconds.`
            : refused.message
        byId('login-password').select()
    } finally {
        button.disabled = false
    }
}

/// @param entered  called when a user is logged in
export function start(entered) {
    enter = entered
    byId('login-form').addEventListener('submit', submit)
}
