/// When a pipe renders, for whom, and in which sizes.
#include "pipe.h"

#include "internal.h"
#include "util/time.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <malloc.h>

using media::Picture;
using media::PictureTaker;
using media::Pipe;
using media::Size;

namespace
{
/// For so long after its last picture a pipe keeps the memory at hand: who comes back soon is served sooner with it.
constexpr BU_S64 IN_HAND_US = 10'000'000;
} // namespace

const SCENE_FRAME_S &Picture::frame(Size stSize)
{
    if (m_stFrame.s32Width != stSize.s32Width || m_stFrame.s32Height != stSize.s32Height) {
        m_vec = std::vector<BU_U8>(static_cast<std::size_t>(stSize.area()) * 3 / 2);
        m_stFrame = {m_vec.data(),    m_vec.data() + stSize.area(), stSize.s32Width, stSize.s32Width, stSize.s32Width,
                     stSize.s32Height};
    }
    return m_stFrame;
}

void Picture::release()
{
    m_vec = {};
    m_stFrame = {};
}

Pipe::~Pipe() { m_thread.reset(); }

void Pipe::start(const std::function<void()> &fnPrepared)
{
    const std::lock_guard guard(m_lock);
    if (m_thread) return;
    m_thread.emplace(m_s32Pipe == PIPE_CLOSE_UP ? "CloseUp" : "Panorama",
                     [this, fnPrepared](const std::stop_token &stop) {
                         m_id = std::this_thread::get_id();
                         {
                             const std::lock_guard started(m_lock);
                             m_bWaiting = false;
                         }
                         m_source.prepare();
                         fnPrepared();
                         loop(stop);
                     });
}

void Pipe::setRate(FrameRate stRate)
{
    {
        const std::lock_guard guard(m_lock);
        m_stRate = stRate;
    }
    wake();
}

media::FrameRate Pipe::rate() const
{
    const std::lock_guard guard(m_lock);
    return m_stRate;
}

void Pipe::add(std::shared_ptr<PictureTaker> pstTaker)
{
    {
        const std::lock_guard guard(m_lock);
        m_takers.push_back(std::move(pstTaker));
    }
    wake();
}

void Pipe::remove(const PictureTaker *pstTaker)
{
    std::unique_lock guard(m_lock);
    std::erase_if(m_takers, [&](const auto &pst) { return pst.get() == pstTaker; });
    if (isThread()) return;
    m_asked.wait(guard, [this, u64Rounds = m_u64Rounds] { return m_bWaiting || m_u64Rounds != u64Rounds; });
}

void Pipe::wake()
{
    const std::lock_guard guard(m_lock);
    m_bWoken = true;
    m_wake.notify_one();
}

std::vector<std::shared_ptr<PictureTaker>> Pipe::takers()
{
    const std::lock_guard guard(m_lock);
    ++m_u64Rounds;
    m_asked.notify_all();
    return m_takers;
}

void Pipe::loop(const std::stop_token &stop)
{
    BU_S64 s64LastUs = 0;       // the last picture
    bool bMemoryInHand = false; // freed since, but not yet the system's again
    while (!stop.stop_requested()) {
        runPosted();
        const FrameRate stRate = rate();
        const BU_S64 s64Now = stRate.frameAt(UTIL_TIME_NowUs());
        // The present frame is in time for whoever has just come; frames that passed meanwhile are left out.
        const auto s64Next = nextFrame(stRate, std::max(stRate.frameAt(s64LastUs), s64Now - 1));
        if (!s64Next) {
            rest();
            const BU_S64 s64GiveBackUs = s64LastUs + IN_HAND_US;
            if (bMemoryInHand && UTIL_TIME_NowUs() >= s64GiveBackUs) {
                malloc_trim(0);
                bMemoryInHand = false;
            }
            waitFor(bMemoryInHand ? std::optional(s64GiveBackUs) : std::nullopt, stop);
        } else if (*s64Next > s64Now) {
            waitFor(stRate.dueUs(*s64Next), stop);
        } else {
            render(stRate, *s64Next);
            s64LastUs = stRate.dueUs(*s64Next);
            bMemoryInHand = true;
        }
    }
}

void Pipe::waitFor(std::optional<BU_S64> s64DueUs, const std::stop_token &stop)
{
    std::unique_lock guard(m_lock);
    m_bWaiting = true;
    m_asked.notify_all();
    if (s64DueUs)
        m_wake.wait_for(guard, stop, std::chrono::microseconds(*s64DueUs - UTIL_TIME_NowUs()),
                        [this] { return m_bWoken; });
    else
        m_wake.wait(guard, stop, [this] { return m_bWoken; });
    m_bWoken = m_bWaiting = false;
}

/// Frees what only pictures need.
void Pipe::rest()
{
    m_picture.release();
    m_scaled.clear();
    m_due.clear();
}

std::optional<BU_S64> Pipe::nextFrame(FrameRate stOutput, BU_S64 s64Last)
{
    std::optional<BU_S64> s64Next;
    m_due.clear();
    for (auto &pstTaker : takers()) {
        const auto stWish = pstTaker->wish(stOutput);
        if (!stWish) continue;
        const BU_S64 s64 = stWish->bOnce ? s64Last + 1 : stWish->stRate.nextOf(stOutput, s64Last + 1);
        s64Next = std::min(s64, s64Next.value_or(s64));
        m_due.push_back({pstTaker, *stWish});
    }
    return s64Next;
}

void Pipe::render(FrameRate stOutput, BU_S64 s64Frame)
{
    Size stLargest; // of all, so that the size does not change from frame to frame
    for (const auto &st : m_due)
        if (st.stWish.stSize.area() > stLargest.area()) stLargest = st.stWish.stSize;
    std::erase_if(m_due, [&](const Due &st) {
        return !st.stWish.bOnce && st.stWish.stRate.nextOf(stOutput, s64Frame) != s64Frame;
    });
    if (m_due.empty()) return;
    const SCENE_FRAME_S &stFrame = m_picture.frame(stLargest);
    const BU_S64 s64TimeUs = stOutput.dueUs(s64Frame);
    if (m_source.draw(stFrame, sceneTimeUs(s64TimeUs))) hand(stFrame, static_cast<BU_U64>(s64TimeUs));
}

/// Gives the picture to all who are due, scaled where they want it smaller. What is drawn over it comes last, so that
/// the plain picture is there for all who want it plain.
void Pipe::hand(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs)
{
    constexpr BU_U64 KEPT_US = 2'000'000; // a size that nobody took for so long is given up
    for (auto &st : m_due)
        st.bDrawnOver = overlay::isShown(st.stWish.s32Target) || (m_source.hasInset() && st.stWish.s32Target >= 0);
    std::ranges::stable_sort(m_due, {}, [](const Due &st) { return std::pair(st.bDrawnOver, st.stWish.stSize); });
    for (const auto &st : m_due) {
        const Size stSize = st.stWish.stSize;
        const bool bInPlace =
            stSize == Size{stFrame.s32Width, stFrame.s32Height} && (!st.bDrawnOver || &st == &m_due.back());
        const SCENE_FRAME_S *pstFrame = &stFrame;
        if (!bInPlace) {
            Scaled &stScaled = m_scaled[stSize];
            pstFrame = &stScaled.picture.frame(stSize);
            if (st.bDrawnOver || stScaled.u64UsedUs != u64TimeUs) SCENE_Scale(stFrame, *pstFrame);
            stScaled.u64UsedUs = u64TimeUs;
        }
        if (st.bDrawnOver) drawOver(st.stWish.s32Target, *pstFrame, u64TimeUs);
        st.pstTaker->take(*pstFrame, u64TimeUs);
    }
    std::erase_if(m_scaled, [&](const auto &pair) { return u64TimeUs - pair.second.u64UsedUs > KEPT_US; });
}

void Pipe::drawOver(BU_S32 s32Target, const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs)
{
    if (m_source.hasInset()) m_source.drawInset(stFrame, sceneTimeUs(static_cast<BU_S64>(u64TimeUs)));
    overlay::blend(s32Target, stFrame);
}

namespace
{
struct Pipes {
    std::array<Pipe, 2> pipes{Pipe(media::PIPE_CLOSE_UP), Pipe(media::PIPE_PANORAMA)};
    std::atomic<BU_S32> s32Count{2};
};
Pipes &pipes()
{
    static auto *pstPipes = new Pipes;
    return *pstPipes;
}
} // namespace

void media::setPipeRates(FrameRate stRate)
{
    for (auto &pipe : pipes().pipes) pipe.setRate(stRate);
}

Pipe *media::pipeAt(BU_S32 s32Pipe)
{
    return s32Pipe >= 0 && s32Pipe < pipes().s32Count ? &pipes().pipes[static_cast<std::size_t>(s32Pipe)] : nullptr;
}

Pipe *media::pipeOf(BU_S32 s32Usage)
{
    switch (s32Usage) {
    case MPP_PIPE_USAGE_E_CLOSEUP_FULL:
    case MPP_PIPE_USAGE_E_TRACK_ALG_CLOSEUP:
        return pipeAt(PIPE_CLOSE_UP);
    case MPP_PIPE_USAGE_E_PANORAMA_CROP0:
    case MPP_PIPE_USAGE_E_TRACK_ALG_PANORAMA:
        return pipeAt(PIPE_PANORAMA);
    default:
        return nullptr;
    }
}

void media::setPipeCount(BU_S32 s32Count) { pipes().s32Count = s32Count; }

/// One after the other: whoever waits for the camera waits for the close-up, and the start-up needs a processor, too.
void media::startPipes()
{
    if (auto *pstCloseUp = pipeAt(PIPE_CLOSE_UP))
        pstCloseUp->start([] {
            if (auto *pstPanorama = pipeAt(PIPE_PANORAMA)) pstPanorama->start();
        });
}
