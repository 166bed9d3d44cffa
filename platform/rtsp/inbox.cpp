#include "inbox.h"

#include <glib.h>

namespace rtsp
{
Inbox::Inbox() : m_pstContext(g_main_context_new()) {}
Inbox::~Inbox() { g_main_context_unref(m_pstContext); }

void Inbox::post(std::function<void()> fn)
{
    {
        const std::lock_guard guard(m_lock);
        m_listPosted.push_back(std::move(fn));
    }
    g_main_context_wakeup(m_pstContext);
}

void Inbox::runPosted()
{
    std::vector<std::function<void()>> listPosted;
    {
        const std::lock_guard guard(m_lock);
        listPosted.swap(m_listPosted);
    }
    for (const auto &fn : listPosted) fn();
}

void Inbox::waitAndRun()
{
    runPosted();
    g_main_context_iteration(m_pstContext, TRUE);
    runPosted();
}

void Inbox::runEvents()
{
    while (g_main_context_iteration(m_pstContext, FALSE)) {}
    runPosted();
}
} // namespace rtsp
