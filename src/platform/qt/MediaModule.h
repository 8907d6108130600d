#pragma once
// Sound and the web GET live in a module of their own (libvestrel_media.so),
// opened on a worker thread as the program starts. The libraries behind Qt
// Multimedia and Qt Network are a third of what the loader maps at start-up,
// and nothing needs them before the first window is on the screen.
#include <future>
#include <memory>
#include <optional>
#include <string>

#include <QString>

class MediaBackend {
public:
    virtual ~MediaBackend() = default;
    // Plays a wave file, cutting the one still playing.
    virtual void Play(const QString& absoluteFile) = 0;
    // One GET, waiting for the answer with the operator's input held back;
    // nothing on a fault or after the time-out.
    virtual std::optional<std::string> Get(const QString& url, int timeoutMs) = 0;
};

// The one symbol of the module.
extern "C" {
using MakeMediaBackendFn = MediaBackend* ();
}
inline constexpr const char* kMakeMediaBackend = "vestrel_make_media_backend";

class MediaModule {
public:
    // Starts opening the module at once, on a worker thread.
    explicit MediaModule(const QString& programDir);
    ~MediaModule();
    MediaModule(const MediaModule&) = delete;
    MediaModule& operator=(const MediaModule&) = delete;

    bool Ready() const;
    // The backend, made on first call on the calling (GUI) thread; waits for the
    // module when it is still being opened. Null when it could not be opened.
    MediaBackend* Backend();
    // Why the module could not be opened; empty when it was.
    std::string Error();

private:
    struct Opened {
        void* handle = nullptr;
        MakeMediaBackendFn* make = nullptr;
        std::string error;
    };
    static Opened Open(const std::string& programDir);
    const Opened& Result();

    std::future<Opened> opening_;
    std::optional<Opened> opened_;
    std::unique_ptr<MediaBackend> backend_;
};
