#include "ui/machine/SoundOutput.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <span>
#include <system_error>
#include <utility>

namespace {

using std::chrono::milliseconds;

// Samples of silence before the first sound: the beginning of a stream may be lost to loudspeakers
// that wake up and to those who listen in to the device.
constexpr std::size_t kLeadIn = kSampleRate / 50;
constexpr int kRequestTime = 20;  // milliseconds the server asks for at once
// Samples of silence until the stream is closed.
constexpr std::size_t kRest = std::size_t{5} * kSampleRate;
constexpr milliseconds kPatience{3000};  // with a server that does not answer or play
constexpr milliseconds kTooLate{1000};   // what was to be heard before the stream opened, is not
constexpr milliseconds kDeaf{1000};      // until a server is looked for again
constexpr int kLookTime = 1'000'000;     // microseconds

constexpr std::uint32_t BytesIn(int milliseconds) {
    return static_cast<std::uint32_t>(kSampleRate * milliseconds / 1000) * sizeof(std::int16_t);
}

// The window's thread is the one that ends the program on a signal.
void BlockSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

struct Freeing {
    void operator()(pa_context* context) const {
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
    void operator()(pa_stream* stream) const {
        pa_stream_set_state_callback(stream, nullptr, nullptr);
        pa_stream_set_write_callback(stream, nullptr, nullptr);
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
    void operator()(pa_proplist* properties) const { pa_proplist_free(properties); }
};

}  // namespace

// One connection to the server, from the first sound until all has been silent for a while. All of
// it runs in the output's own thread.
class SoundOutput::Session {
  public:
    explicit Session(SoundOutput& owner) : output(owner) {}

    // False when the server failed.
    bool Run();

  private:
    void Connect();
    void ContextChanged();
    void StreamChanged();
    void Fill(std::size_t bytes);
    void Progress() { lastProgress = Clock::now(); }
    bool Ending();

    SoundOutput& output;
    std::unique_ptr<pa_context, Freeing> context;
    std::unique_ptr<pa_stream, Freeing> stream;  // goes before its context
    Clock::time_point begin = Clock::now();
    Clock::time_point lastProgress = begin;
    std::size_t leadIn = kLeadIn;  // samples of it still to be played
    std::size_t silence = 0;       // samples since the last sound
    bool failed = false;
};

bool SoundOutput::Session::Run() {
    Connect();
    while (!failed && silence < kRest && !Ending()) {
        const bool turned = pa_mainloop_prepare(output.loop, kLookTime) >= 0 &&
                            pa_mainloop_poll(output.loop) >= 0 &&
                            pa_mainloop_dispatch(output.loop) >= 0;
        if (!turned || Clock::now() - lastProgress > kPatience) failed = true;
    }
    return !failed;
}

bool SoundOutput::Session::Ending() {
    const std::lock_guard lock(output.mutex);
    return output.ending;
}

void SoundOutput::Session::Connect() {
    const std::unique_ptr<pa_proplist, Freeing> properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Tolvane");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "tolvane");
    pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "game");
    context.reset(
        pa_context_new_with_proplist(pa_mainloop_get_api(output.loop), nullptr, properties.get()));
    if (!context) {
        failed = true;
        return;
    }
    pa_context_set_state_callback(
        context.get(),
        [](pa_context*, void* self) { static_cast<Session*>(self)->ContextChanged(); }, this);
    if (pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0) failed = true;
    Progress();
}

void SoundOutput::Session::ContextChanged() {
    Progress();
    const pa_context_state_t state = pa_context_get_state(context.get());
    if (!PA_CONTEXT_IS_GOOD(state)) failed = true;
    if (state != PA_CONTEXT_READY) return;
    const pa_sample_spec format{PA_SAMPLE_S16NE, kSampleRate, 1};
    stream.reset(pa_stream_new(context.get(), "Tolvane", &format, nullptr));
    if (!stream) {
        failed = true;
        return;
    }
    pa_stream_set_state_callback(
        stream.get(), [](pa_stream*, void* self) { static_cast<Session*>(self)->StreamChanged(); },
        this);
    pa_stream_set_write_callback(
        stream.get(),
        [](pa_stream*, std::size_t bytes, void* self) { static_cast<Session*>(self)->Fill(bytes); },
        this);
    constexpr auto kAny = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffer{.maxlength = kAny,
                                .tlength = BytesIn(kBufferTime),
                                .prebuf = kAny,
                                .minreq = BytesIn(kRequestTime),
                                .fragsize = kAny};
    // Without the name of a device the server keeps the stream on its default one.
    if (pa_stream_connect_playback(stream.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY,
                                   nullptr, nullptr) < 0) {
        failed = true;
    }
}

void SoundOutput::Session::StreamChanged() {
    Progress();
    const pa_stream_state_t state = pa_stream_get_state(stream.get());
    if (!PA_STREAM_IS_GOOD(state)) failed = true;
    if (state != PA_STREAM_READY || Clock::now() - begin < kTooLate) return;
    const std::lock_guard lock(output.mutex);
    output.mixer.StopAll();
}

void SoundOutput::Session::Fill(std::size_t bytes) {
    Progress();
    while (bytes > 0 && !failed) {
        void* place = nullptr;
        std::size_t size = bytes;
        if (pa_stream_begin_write(stream.get(), &place, &size) < 0 || !place || size == 0) {
            failed = true;
            return;
        }
        size = std::min(size, bytes);
        const std::span samples(static_cast<std::int16_t*>(place), size / sizeof(std::int16_t));
        const std::size_t quiet = std::min(leadIn, samples.size());
        std::ranges::fill(samples.first(quiet), std::int16_t{0});
        leadIn -= quiet;
        {
            const std::lock_guard lock(output.mutex);
            silence = output.mixer.IsSilent() ? silence + samples.size() : 0;
            output.mixer.Mix(samples.subspan(quiet));
        }
        if (pa_stream_write(stream.get(), place, samples.size_bytes(), nullptr, 0,
                            PA_SEEK_RELATIVE) < 0) {
            failed = true;
        }
        bytes -= size;
    }
}

SoundOutput::~SoundOutput() {
    {
        const std::lock_guard lock(mutex);
        ending = true;
        if (loop) pa_mainloop_wakeup(loop);
    }
    wake.notify_one();
    if (worker.joinable()) worker.join();
}

SoundMixer::Voice SoundOutput::Play(const Samples& samples) {
    const std::lock_guard lock(mutex);
    if (Clock::now() < deafUntil) return 0;
    if (!worker.joinable()) {
        try {
            worker = std::thread([this] { Work(); });
        } catch (const std::system_error&) {
            return 0;
        }
    }
    const SoundMixer::Voice voice = mixer.Start(samples);
    wake.notify_one();
    return voice;
}

bool SoundOutput::IsPlaying(SoundMixer::Voice voice) {
    const std::lock_guard lock(mutex);
    return mixer.IsPlaying(voice);
}

void SoundOutput::Work() {
    BlockSignals();
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return ending || !mixer.IsSilent(); });
        if (ending) return;
        loop = pa_mainloop_new();
        lock.unlock();
        const bool played = loop && Session(*this).Run();
        lock.lock();
        if (loop) pa_mainloop_free(std::exchange(loop, nullptr));
        if (played) continue;
        mixer.StopAll();
        deafUntil = Clock::now() + kDeaf;
    }
}
