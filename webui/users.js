// Password and users.
import { get, post, remove } from './api.js'
import { ask, attempt, h, toast } from './dom.js'
import { on } from './signals.js'

const ROLES = ['viewer', 'operator', 'admin']
const SHORTEST = 8

const field = (label, attributes) => {
    const input = h('input', { required: true, ...attributes })
    return { row: h('label', {}, label, input), input }
}
const password = (label, autocomplete) =>
    field(label, {
        type: 'password',
        autocomplete,
        minlength: autocomplete === 'current-password' ? undefined : SHORTEST,
    })

function form(title, fields, button, submit) {
    const element = h(
        'form',
        { class: 'rows' },
        h('h3', {}, title),
        ...fields.map(({ row }) => row),
        h('div', { class: 'buttons' }, h('button', { class: 'primary' }, button)),
    )
    element.addEventListener('submit', async event => {
        event.preventDefault()
        if (await attempt(submit)) element.reset()
    })
    return element
}

/// For the browser's password store.
const namedFor = user => h('input', { autocomplete: 'username', value: user, hidden: true, readonly: true })

function passwordForm(user) {
    const old = password('Present password', 'current-password'),
        next = password('New password', 'new-password')
    return form('Change the password', [{ row: namedFor(user) }, old, next], 'Change', async () => {
        await post('/password', { old: old.input.value, new: next.input.value })
        toast('The password is changed.', 'note')
    })
}

function usersPart() {
    const list = h('ul', { class: 'users' })
    const show = async () => {
        const users = await get('/users')
        list.replaceChildren(
            ...users.map(({ user, role }) =>
                h(
                    'li',
                    {},
                    h('b', {}, user),
                    h('span', { class: 'dim' }, role),
                    h(
                        'button',
                        { type: 'button', 'aria-label': `Delete ${user}`, onclick: () => erase(user) },
                        'Delete',
                    ),
                ),
            ),
        )
    }
    const erase = async user => {
        if (await ask(`Delete the user ${user}?`, 'Delete'))
            await attempt(() => remove(`/users/${encodeURIComponent(user)}`))
        await attempt(show)
    }
    const name = field('User', { autocomplete: 'off', maxlength: 32, autocapitalize: 'none' })
    const secret = password('Password', 'new-password')
    secret.input.required = false
    secret.input.placeholder = 'empty: as it was'
    const role = { row: h('label', {}, 'May', h('select', {}, ...ROLES.map(value => h('option', { value }, value)))) }
    const add = form('Add or change a user', [name, secret, role], 'Save', async () => {
        await post('/users', {
            user: name.input.value,
            password: secret.input.value,
            role: role.row.querySelector('select').value,
        })
        toast('Saved.', 'note')
        await show()
    })
    return { elements: [h('div', { class: 'rows' }, h('h3', {}, 'Users'), list), add], show }
}

export function makeUsersPanel(body) {
    let users = null
    let isShown = false
    const read = () => isShown && users && attempt(users.show)
    on('session', ({ user, role }) => {
        users = role === 'admin' ? usersPart() : null
        body.replaceChildren(passwordForm(user), ...(users?.elements ?? []))
        read()
    })
    return {
        set shown(shown) {
            isShown = shown
            read()
        },
    }
}
