/// Who hears of something: lists that are walked without a lock while they change.
#pragma once

#include "base/types.h"

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace util
{
/// A value that is replaced as a whole: whoever looks at it keeps what was there when the look began.
/// Thread: any.
template <class T> class CopyOnWrite
{
public:
    std::shared_ptr<const T> get() const ///< never null
    {
        const std::lock_guard guard(m_lock);
        return m_pst ? m_pst : std::make_shared<const T>();
    }
    /// fn changes a copy, which then takes the place of the old value. @return what fn returns
    template <class F> auto change(F fn)
    {
        std::shared_ptr<const T> pstOld; // destroyed without the lock
        const std::lock_guard guard(m_lock);
        const auto pstNew = m_pst ? std::make_shared<T>(*m_pst) : std::make_shared<T>();
        auto result = fn(*pstNew);
        pstOld = std::exchange(m_pst, pstNew);
        return result;
    }

private:
    mutable std::mutex m_lock; // guards m_pst
    std::shared_ptr<const T> m_pst;
};

/// Functions that are called when something happens, each with a number of its own. What runs just now when one is
/// removed still ends: a listener holds what it uses.
/// Thread: any; listeners run on the thread that tells, without a lock.
template <class... Args> class Listeners
{
public:
    typedef std::function<void(Args...)> Function;

    /// @return its number, > 0; -1: an empty function
    BU_S32 add(Function fn)
    {
        if (!fn) return -1;
        return m_list.change([&](auto &list) {
            list.push_back({++m_s32Last, std::move(fn)});
            return m_s32Last;
        });
    }
    /// @return 0, or -1: no such number
    BU_S32 remove(BU_S32 s32Id)
    {
        return m_list.change([&](auto &list) {
            return std::erase_if(list, [&](const Entry &st) { return st.s32Id == s32Id; }) ? 0 : -1;
        });
    }
    /// Calls them in the order in which they were added.
    void tell(const Args &...args) const
    {
        for (const auto list = m_list.get(); const Entry &st : *list) st.fn(args...);
    }

private:
    struct Entry {
        BU_S32 s32Id;
        Function fn;
    };
    BU_S32 m_s32Last = 0; // changed only inside change(), under its lock
    CopyOnWrite<std::vector<Entry>> m_list;
};
} // namespace util
