// Dark or light, before the first paint. Until a user chooses, the system's wish holds.
'use strict'
{
    const root = document.documentElement
    const light = matchMedia('(prefers-color-scheme: light)')
    const read = () => {
        try {
            return localStorage.getItem('theme')
        } catch {
            return null
        }
    }
    const show = () => {
        root.dataset.theme = read() ?? (light.matches ? 'light' : 'dark')
    }
    show()
    light.addEventListener('change', show)
    document.addEventListener('click', ({ target }) => {
        if (!target.closest?.('#theme')) return
        try {
            localStorage.setItem('theme', root.dataset.theme === 'light' ? 'dark' : 'light')
        } catch {
            /* not kept */
        }
        show()
    })
}
