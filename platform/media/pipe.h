/// A pipe: the pictures of one sensor, rendered in step with the output rate for those who take them.
#pragma once

#include "frameRate.h"
#include "media/frame.h"
#include "pictureSource.h"
#include "scene/scene.h"
#include "util/mailbox.h"
#include "util/thread.h"

#include <atomic>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace media
{
struct Size {
    BU_S32 s32Width = 0, s32Height = 0;
    auto operator<=>(const Size &) const = default;
    BU_S64 area() const { return static_cast<BU_S64>(s32Width) * s32Height; }
};

/// Memory for an NV12 picture, planes without gaps.
class Picture
{
public:
    const SCENE_FRAME_S &frame(Size stSize); ///< contents are lost when the size changes
    void release();

private:
    std::vector<BU_U8> m_vec;
    SCENE_FRAME_S m_stFrame{};
};

/// Who takes pictures of a pipe. Thread: the pipe's, no lock held.
class PictureTaker
{
public:
    struct Wish {
        Size stSize;
        FrameRate stRate;      ///< of the output or slower
        bool bOnce = false;    ///< the next picture, whichever it is
        BU_S32 s32Target = -1; ///< the output that overlays are chosen for, -1: never any
    };
    virtual ~PictureTaker() = default;
    /// Asked before each picture. Empty: takes none now, and may free what it needs only for pictures.
    virtual std::optional<Wish> wish(FrameRate stOutput) = 0;
    virtual void take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs) = 0;
};

class Pipe
{
public:
    explicit Pipe(BU_S32 s32Pipe) : m_s32Pipe(s32Pipe), m_source(s32Pipe) {}
    ~Pipe();

    /// Makes the thread, once. @param fnPrepared  called there when it is ready for its first picture
    void start(const std::function<void()> &fnPrepared = [] {});
    void setRate(FrameRate stRate);
    FrameRate rate() const;
    void add(std::shared_ptr<PictureTaker> pstTaker);
    /// The taker is done with when this returns, except on the pipe's own thread.
    void remove(const PictureTaker *pstTaker);
    /// Somebody's wish has changed.
    void wake();
    /// Runs fn on the pipe's thread, soon, when there is one.
    void post(std::function<void()> fn) { m_posted.post(std::move(fn)); }
    bool isThread() const { return m_id.load() == std::this_thread::get_id(); }

    // What the thread does, for tests without one.
    /// The first frame after s64Last that somebody takes; empty: nobody.
    std::optional<BU_S64> nextFrame(FrameRate stOutput, BU_S64 s64Last);
    /// Renders the frame for those who were asked last and take it.
    void render(FrameRate stOutput, BU_S64 s64Frame);
    void runPosted() { m_posted.run(); }

private:
    struct Due {
        std::shared_ptr<PictureTaker> pstTaker;
        PictureTaker::Wish stWish;
        bool bDrawnOver = false; ///< overlays or an inset
    };
    struct Scaled {
        Picture picture;
        BU_U64 u64UsedUs = 0;
    };

    void loop(const std::stop_token &stop);
    void waitFor(std::optional<BU_S64> s64DueUs, const std::stop_token &stop);
    void rest();
    void hand(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs);
    void drawOver(BU_S32 s32Target, const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs);
    std::vector<std::shared_ptr<PictureTaker>> takers();

    const BU_S32 m_s32Pipe;
    util::Mailbox<> m_posted{[this] { wake(); }};
    mutable std::mutex m_lock; // guards the next group
    std::condition_variable_any m_wake;
    std::condition_variable m_asked;
    bool m_bWoken = false, m_bWaiting = true; // waiting: the thread uses no taker
    BU_U64 m_u64Rounds = 0;                   // counts how often the takers were asked
    FrameRate m_stRate{60, 1};
    std::vector<std::shared_ptr<PictureTaker>> m_takers;

    // The pipe's thread.
    PictureSource m_source;
    Picture m_picture;
    std::map<Size, Scaled> m_scaled;
    std::vector<Due> m_due;

    std::atomic<std::thread::id> m_id;
    std::optional<util::Thread> m_thread; // last: joined first
};

constexpr BU_S32 PIPE_CLOSE_UP = 0, PIPE_PANORAMA = 1;
/// @return null: no pipe of that number, or for that usage
Pipe *pipeAt(BU_S32 s32Pipe);
Pipe *pipeOf(BU_S32 s32Usage);
/// How many sensors there are.
void setPipeCount(BU_S32 s32Count);
/// Makes the threads of the pipes that are there.
void startPipes();
void setPipeRates(FrameRate stRate);
} // namespace media
