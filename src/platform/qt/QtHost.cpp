#include "platform/qt/QtHost.h"

#include <algorithm>
#include <exception>

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QTextBrowser>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include "platform/forms/Form.h"
#include "platform/qt/FormView.h"
#include "platform/qt/MediaModule.h"
#include "platform/qt/QtPrintSurface.h"
#include "platform/vb/Cp1252.h"
#include "platform/vb/Error.h"

namespace {

constexpr int kWebTimeoutMs = 10000;

// Watches every widget of the application until one paints, then hands its
// work to the event loop, to run once that paint is on the screen.
class FirstPaintWatch : public QObject {
public:
    explicit FirstPaintWatch(std::function<void()> work) : work_(std::move(work)) { qApp->installEventFilter(this); }

private:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Paint && o->isWidgetType() && work_) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] {
                std::function<void()> work = std::move(work_);
                deleteLater();
                work();
            });
        }
        return false;
    }
    std::function<void()> work_;
};

}  // namespace

QString FindResourceFolder(const QString& programDir) {
    for (const QString& at : {programDir + "/resources", programDir + "/../share/vestrel"})
        if (QFileInfo(at + "/pictures").isDir()) return QFileInfo(at).canonicalFilePath();
    return {};
}

QtHost::QtHost(const std::string& settingsFile, const std::string& resources)
    : resources_(FromPath(resources)),
      settings_(std::make_unique<QSettings>(FromPath(settingsFile), QSettings::IniFormat)),
      anchor_(std::make_unique<QObject>()),
      media_(std::make_unique<MediaModule>(QCoreApplication::applicationDirPath())) {
    // The program ends by its own rules (End, or its last form unloaded), not
    // when Qt sees a last window close: a box shown before any form is not one.
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

QtHost::~QtHost() {
    for (auto& [form, view] : views_) {
        view->Detach();
        delete view;
    }
    views_.clear();
    while (busyDepth_ > 0) {
        QApplication::restoreOverrideCursor();
        --busyDepth_;
    }
}

int QtHost::Run(const std::function<void()>& main) {
    Call(main);
    if (ending_) return 0;
    bool anyShown = false;
    for (auto& [form, view] : views_) anyShown = anyShown || view->isVisible();
    if (!anyShown) return 0;
    mainLoopRunning_ = true;
    int code = QApplication::exec();
    mainLoopRunning_ = false;
    return code;
}

bool QtHost::Call(const std::function<void()>& f) {
    if (ending_) return false;
    try {
        f();
        return true;
    } catch (const host::EndProgram&) {
        ending_ = true;
        QuitAllLoops();
    } catch (const vb::RuntimeError& e) {
        ShowError(vb::FaultText(e));
    } catch (const std::exception& e) {
        ShowError(std::string("Vestrel could not finish this step:\n\n") + e.what());
    } catch (...) {
        ShowError("Vestrel could not finish this step.");
    }
    return false;
}

void QtHost::QuitAllLoops() {
    for (ModalLoop* m : modal_) {
        m->done = true;
        m->loop->exit(0);
    }
    // Outside Run (a test, or Main itself) there is no main loop to leave.
    if (mainLoopRunning_) QCoreApplication::exit(0);
}

void QtHost::ShowError(const std::string& text) {
    QWidget* was = DialogParent();
    QMessageBox box(QMessageBox::Critical, QCoreApplication::applicationName(), ToQString(text), QMessageBox::Ok,
                    was);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    ReactivateAfterDialog(was);
}

void QtHost::ThrowIfEnding() const {
    if (ending_) throw host::EndProgram{};
}

FormView* QtHost::View(const forms::Form& f) const {
    auto it = views_.find(&f);
    return it == views_.end() ? nullptr : it->second;
}

void QtHost::AfterFirstPaint(std::function<void()> work) {
    new FirstPaintWatch([this, work = std::move(work)] {
        if (!ending_) Call(work);
    });
}

void QtHost::PrepareForm(forms::Form& f) { ViewFor(f); }

FormView& QtHost::ViewFor(forms::Form& f) {
    if (FormView* v = View(f)) return *v;
    auto* v = new FormView(*this, f);
    views_[&f] = v;
    return *v;
}

void QtHost::DropView(forms::Form* f) {
    auto it = views_.find(f);
    if (it == views_.end()) return;
    FormView* v = it->second;
    views_.erase(it);
    v->Detach();
    // The window may be in the middle of its own event (the click that unloaded it).
    v->deleteLater();
}

void QtHost::EndModalLoop(forms::Form* f) {
    for (ModalLoop* m : modal_)
        if (m->form == f && !m->done) {
            m->done = true;
            m->loop->exit(0);
        }
}

void QtHost::ShowForm(forms::Form& f, bool modal) {
    ThrowIfEnding();
    for (ModalLoop* m : modal_)
        if (m->form == &f && !m->done) return;   // already shown modally: its loop runs further down
    forms::Form* beneath = ActiveForm();
    FormView& v = ViewFor(f);
    f.SetVisibleFlag(true);
    v.ShowWindow(modal);
    forms::ActivateForm(*this, &f);
    if (f.Loaded() && f.Visible() && View(f) == &v) {
        // As the old runtime: the first control in tab order starts with the focus.
        if (!f.ActiveControl()) {
            if (forms::Control* first = f.NextInTabOrder(nullptr)) f.SetFocusTo(first);
        } else {
            v.SyncFocus();
        }
    }
    // Showing a window can run an activation that ended the program.
    ThrowIfEnding();
    if (!modal) return;

    QEventLoop loop;
    ModalLoop m{&f, &loop, false};
    modal_.push_back(&m);
    if (!ending_ && f.Loaded() && f.Visible()) loop.exec(QEventLoop::DialogExec);
    modal_.erase(std::find(modal_.begin(), modal_.end(), &m));
    // The model code after a modal Show never runs once the program is ending.
    ThrowIfEnding();

    // The form beneath is active again, as when the old runtime closed a modal form.
    forms::Form* next = nullptr;
    if (beneath && beneath != &f) {
        FormView* bv = View(*beneath);
        if (bv && bv->isVisible()) next = beneath;
    }
    if (!next) {
        for (auto& [form, view] : views_)
            if (view->isVisible() && view->Model()) next = view->Model();
    }
    if (next) {
        View(*next)->activateWindow();
        forms::ActivateForm(*this, next);
    }
}

void QtHost::HideForm(forms::Form& f) {
    f.SetVisibleFlag(false);
    if (FormView* v = View(f)) v->hide();
    EndModalLoop(&f);
    if (ActiveForm() == &f) host::Host::ForgetForm(&f);
    ScheduleEndCheck();
}

void QtHost::UnloadForm(forms::Form& f) {
    f.SetVisibleFlag(false);
    if (FormView* v = View(f)) v->hide();
    EndModalLoop(&f);
    DropView(&f);
    ScheduleEndCheck();
}

void QtHost::ForgetForm(forms::Form* f) {
    host::Host::ForgetForm(f);
    // Unloaded or destroyed: the window goes, and never touches the form again.
    EndModalLoop(f);
    if (FormView* v = View(*f)) v->hide();
    DropView(f);
}

void QtHost::Refresh(forms::Form& f) {
    // Paints now without running the event loop, so no handler runs in between.
    if (FormView* v = View(f); v && v->isVisible()) v->repaint();
}

void QtHost::WindowActivated(FormView& v) {
    forms::Form* f = v.Model();
    if (!f || ending_ || !f->Loaded() || !f->Visible()) return;
    // A window under a modal one is not the operator's to activate.
    if (QWidget* m = QApplication::activeModalWidget(); m && m != &v) return;
    Call([&] { forms::ActivateForm(*this, f); });
}

void QtHost::ScheduleEndCheck() {
    if (endCheckPending_) return;
    endCheckPending_ = true;
    QTimer::singleShot(0, anchor_.get(), [this] { EndCheck(); });
}

void QtHost::EndCheck() {
    endCheckPending_ = false;
    if (!mainLoopRunning_ || ending_) return;
    // Inside a box or a modal loop the routine that opened it has not finished yet.
    if (QThread::currentThread()->loopLevel() > 1) {
        endCheckPending_ = true;
        QTimer::singleShot(100, anchor_.get(), [this] { EndCheck(); });
        return;
    }
    for (auto& [form, view] : views_)
        if (view->isVisible()) return;
    // The last form is gone: the program is over.
    QCoreApplication::exit(0);
}

QWidget* QtHost::DialogParent() const {
    if (QWidget* m = QApplication::activeModalWidget()) return m;
    if (QWidget* a = QApplication::activeWindow()) return a;
    if (forms::Form* f = ActiveForm())
        if (FormView* v = View(*f); v && v->isVisible()) return v;
    return nullptr;
}

void QtHost::ReactivateAfterDialog(QWidget* was) {
    // Not every platform gives the activation back when a box closes; the
    // focus then returns as a window change, which fires no focus events.
    if (was && was->isVisible()) was->activateWindow();
}

void QtHost::SetBusy(bool busy) {
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ++busyDepth_;
    } else if (busyDepth_ > 0) {
        QApplication::restoreOverrideCursor();
        --busyDepth_;
    }
}

void QtHost::PlayWave(const std::string& path) {
    QString file = FromPath(path);
    if (!QFileInfo::exists(file)) return;
    pendingSound_ = QFileInfo(file).absoluteFilePath();
    PlayPendingSound();
}

void QtHost::PlayPendingSound() {
    if (pendingSound_.isEmpty()) return;
    // While the module is still being opened the sound waits for it, and the
    // window that asked for it is drawn meanwhile.
    if (!media_->Ready()) {
        if (!soundWaiting_) {
            soundWaiting_ = true;
            QTimer::singleShot(10, anchor_.get(), [this] {
                soundWaiting_ = false;
                PlayPendingSound();
            });
        }
        return;
    }
    QString file;
    file.swap(pendingSound_);
    if (MediaBackend* b = media_->Backend()) b->Play(file);
}

std::string QtHost::MediaError() { return media_->Error(); }

int QtHost::OpenDocument(const std::string& path) {
    QString file = FromPath(path);
    if (!QFileInfo::exists(file)) return 2;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath())) ? 33 : 1;
}

std::optional<std::string> QtHost::HttpGet(const std::string& url) {
    MediaBackend* b = media_->Backend();
    if (!b) return std::nullopt;
    std::optional<std::string> body = b->Get(QString::fromStdString(url), kWebTimeoutMs);
    ThrowIfEnding();
    return body;
}

void QtHost::ShowHelp(const std::string& file, int command, int context) {
    constexpr int kHelpQuit = 2, kHelpContext = 1;
    if (command == kHelpQuit) {
        if (help_) help_->hide();
        return;
    }
    if (!help_) {
        help_ = std::make_unique<QTextBrowser>();
        help_->setWindowTitle(QCoreApplication::applicationName() + " Help");
        help_->setOpenExternalLinks(true);
        help_->resize(720, 540);
        // A reading window closes from the keyboard, as the desktop's others do.
        for (const QKeySequence& k : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
            auto* close = new QShortcut(k, help_.get());
            close->setContext(Qt::WindowShortcut);
            QObject::connect(close, &QShortcut::activated, help_.get(), &QWidget::hide);
        }
    }
    if (!help_->isVisible()) {
        // Over the program's window, or in the middle of the screen.
        QWidget* over = QApplication::activeWindow();
        QRect area = over && over != help_.get() ? over->frameGeometry() : QRect();
        if (QScreen* s = over ? over->screen() : QGuiApplication::primaryScreen(); s && area.isNull())
            area = s->availableGeometry();
        if (!area.isNull()) {
            QRect r(QPoint(0, 0), help_->size());
            r.moveCenter(area.center());
            help_->move(r.topLeft());
        }
    }
    QString path = FromPath(file);
    if (QFileInfo::exists(path)) {
        QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
        if (command == kHelpContext) url.setFragment("c" + QString::number(context));
        help_->setSource(url);
        if (command == kHelpContext) help_->scrollToAnchor(url.fragment());
    } else {
        help_->setPlainText("The help file " + path + " could not be found.");
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

vb::DateTime QtHost::Now() {
    QDateTime now = QDateTime::currentDateTime();
    QDate d = now.date();
    QTime t = now.time();
    return {d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()};
}

namespace {
QString SettingsGroup(const std::string& app, const std::string& section) {
    return ToQString(app) + "/" + ToQString(section);
}
}  // namespace

std::string QtHost::GetSetting(const std::string& app, const std::string& section, const std::string& key,
                               const std::string& def) {
    QString k = SettingsGroup(app, section) + "/" + ToQString(key);
    if (!settings_->contains(k)) return def;
    return FromQString(settings_->value(k).toString());
}

void QtHost::SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                         const std::string& value) {
    settings_->setValue(SettingsGroup(app, section) + "/" + ToQString(key), ToQString(value));
    settings_->sync();
}

std::vector<std::pair<std::string, std::string>> QtHost::GetAllSettings(const std::string& app,
                                                                        const std::string& section) {
    std::vector<std::pair<std::string, std::string>> out;
    settings_->beginGroup(SettingsGroup(app, section));
    for (const QString& k : settings_->childKeys())
        out.emplace_back(FromQString(k), FromQString(settings_->value(k).toString()));
    settings_->endGroup();
    return out;
}

void QtHost::DeleteSetting(const std::string& app, const std::string& section, const std::string& key) {
    QString group = SettingsGroup(app, section);
    // Without a key the whole section goes, as the old call did.
    settings_->remove(key.empty() ? group : group + "/" + ToQString(key));
    settings_->sync();
}

QtPrintSurface& QtHost::Surface() {
    if (!printer_) {
        printer_ = std::make_unique<QtPrintSurface>();
        printer_->OnFailure = [this](const std::string& why) { MsgBox(why, host::vbExclamation, ""); };
    }
    return *printer_;
}

host::PrintSurface& QtHost::Printer() { return Surface(); }
