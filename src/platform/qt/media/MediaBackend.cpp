// The module behind MediaModule: Qt Multimedia for sound, Qt Network for the GET.
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>

#include "platform/qt/MediaModule.h"

namespace {

class QtMediaBackend : public MediaBackend {
public:
    void Play(const QString& absoluteFile) override {
        // A new sound cuts the one still playing, as the old call did.
        sound_ = std::make_unique<QSoundEffect>();
        sound_->setSource(QUrl::fromLocalFile(absoluteFile));
        sound_->play();
    }

    std::optional<std::string> Get(const QString& url, int timeoutMs) override {
        if (!network_) network_ = std::make_unique<QNetworkAccessManager>();
        QNetworkRequest request{QUrl(url)};
        request.setTransferTimeout(timeoutMs);
        QNetworkReply* reply = network_->get(request);
        QEventLoop loop;
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(timeoutMs + 1000, &loop, &QEventLoop::quit);
        // Synchronous for the program: the operator's input waits until it is done.
        if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
        std::optional<std::string> body;
        if (!reply->isFinished()) {
            reply->abort();
        } else if (reply->error() == QNetworkReply::NoError) {
            body = reply->readAll().toStdString();
        }
        reply->deleteLater();
        return body;
    }

private:
    std::unique_ptr<QSoundEffect> sound_;
    std::unique_ptr<QNetworkAccessManager> network_;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) MediaBackend* vestrel_make_media_backend() {
    return new QtMediaBackend;
}
