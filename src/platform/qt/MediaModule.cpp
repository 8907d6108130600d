#include "platform/qt/MediaModule.h"

#include <dlfcn.h>

#include <chrono>

#include <QFileInfo>

#ifndef VESTREL_LIBDIR
#define VESTREL_LIBDIR "lib"
#endif

MediaModule::MediaModule(const QString& programDir)
    : opening_(std::async(std::launch::async, &MediaModule::Open, programDir.toStdString())) {}

MediaModule::~MediaModule() {
    backend_.reset();
    // The module stays mapped: Qt may still hold objects of its libraries
    // until the application ends.
    if (opening_.valid()) opening_.wait();
}

MediaModule::Opened MediaModule::Open(const std::string& programDir) {
    Opened o;
    // Beside the program in a build folder; under lib/vestrel when installed.
    for (const std::string& at : {programDir + "/libvestrel_media.so",
                                  programDir + "/../" VESTREL_LIBDIR "/vestrel/libvestrel_media.so"}) {
        if (!QFileInfo::exists(QString::fromStdString(at))) continue;
        o.handle = dlopen(at.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!o.handle) {
            const char* e = dlerror();
            o.error = e ? e : at;
            return o;
        }
        o.make = reinterpret_cast<MakeMediaBackendFn*>(dlsym(o.handle, kMakeMediaBackend));
        if (!o.make) o.error = at + " has no " + kMakeMediaBackend;
        return o;
    }
    o.error = "libvestrel_media.so was not found beside " + programDir;
    return o;
}

const MediaModule::Opened& MediaModule::Result() {
    if (!opened_) opened_ = opening_.get();
    return *opened_;
}

bool MediaModule::Ready() const {
    return opened_ || opening_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

MediaBackend* MediaModule::Backend() {
    if (!backend_ && Result().make) backend_.reset(Result().make());
    return backend_.get();
}

std::string MediaModule::Error() { return Result().error; }
