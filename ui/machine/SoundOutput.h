// The way of the sounds to the loudspeaker: one stream to the desktop's sound server, into which
// all that plays is mixed.
#pragma once
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "ui/machine/SoundMixer.h"

struct pa_mainloop;

// A thread of its own speaks with the server, so that no call here waits for it. Stream and
// connection are opened for the first sound and closed some seconds after the last; nothing is open
// and nothing runs while all is silent. The stream belongs to the server's default device and moves
// with it. When there is no server, or it goes away or no longer answers, what plays is dropped and
// the server looked for anew with a sound that comes a second later or after that.
class SoundOutput {
  public:
    SoundOutput() = default;
    ~SoundOutput();  // at once, also amid a sound
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    // The samples must outlive the output. 0 when nothing will be heard, as far as that is known.
    SoundMixer::Voice Play(const Samples& samples);

    // Until it was heard to its end, or dropped.
    bool IsPlaying(SoundMixer::Voice voice);

  private:
    class Session;
    using Clock = std::chrono::steady_clock;

    static constexpr int kBufferTime = 70;  // milliseconds between mixing and hearing

    void Work();

    std::mutex mutex;  // of all that follows, except the thread itself
    std::condition_variable wake;
    SoundMixer mixer{kSampleRate * kBufferTime / 1000};
    pa_mainloop* loop = nullptr;  // while a session runs
    Clock::time_point deafUntil;
    bool ending = false;
    std::thread worker;
};
