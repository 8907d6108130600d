#pragma once
// The desktop host: Qt's own boxes and dialogs, the forms as real windows,
// QSettings for the settings store, sound and one web GET through MediaModule.
//
// Every call from Qt into the program goes through Call: an End statement
// (host::EndProgram) quits every event loop and unwinds, any other error is
// shown in a box and the program goes on, and nothing ever crosses Qt's event
// dispatch.
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QString>

#include "platform/host/Host.h"
#include "platform/qt/QtText.h"

class FormView;
class QEventLoop;
class MediaModule;
class QObject;
class QSettings;
class QTextBrowser;
class QWidget;
class QtPrintSurface;

// The folder of the bundled pictures, sounds and help: beside the program, or
// in the data folder of an installed one. Empty when neither has them.
QString FindResourceFolder(const QString& programDir);

class QtHost : public host::Host {
public:
    // settingsFile: the INI file of the settings store. resources: the folder
    // with the program's pictures (pictures/<name>.svg or .png).
    QtHost(const std::string& settingsFile, const std::string& resources);
    ~QtHost() override;
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    // Runs the program's entry, then the event loop while a form is shown.
    // Returns the process's exit code.
    int Run(const std::function<void()>& main);
    // Runs a call from Qt into the program. False when it did not run to its
    // end: it raised an error, or the program is ending.
    bool Call(const std::function<void()>& f);
    // The program asked to end; nothing of it runs any more.
    bool Ending() const { return ending_; }

    const QString& Resources() const { return resources_; }
    // The window of a form while it is loaded and has been shown; else null.
    FormView* View(const forms::Form& f) const;

    int MsgBox(const std::string& prompt, int buttons = host::vbOKOnly, const std::string& title = "") override;
    std::string InputBox(const std::string& prompt, const std::string& title = "",
                         const std::string& defaultText = "") override;
    bool ShowOpen(host::FileDialog& d) override;
    bool ShowSave(host::FileDialog& d) override;
    bool ShowPrinter(host::PrinterDialog& d) override;
    host::PrintSurface& Printer() override;

    void ShowForm(forms::Form& f, bool modal) override;
    void HideForm(forms::Form& f) override;
    void UnloadForm(forms::Form& f) override;
    void Refresh(forms::Form& f) override;
    void AfterFirstPaint(std::function<void()> work) override;
    void PrepareForm(forms::Form& f) override;
    void ForgetForm(forms::Form* f) override;

    void SetBusy(bool busy) override;
    void PlayWave(const std::string& path) override;
    int OpenDocument(const std::string& path) override;
    std::optional<std::string> HttpGet(const std::string& url) override;
    void ShowHelp(const std::string& file, int command, int context) override;
    vb::DateTime Now() override;

    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& def = "") override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;
    std::vector<std::pair<std::string, std::string>> GetAllSettings(const std::string& app,
                                                                    const std::string& section) override;
    void DeleteSetting(const std::string& app, const std::string& section, const std::string& key) override;

    // Why sound and the web are missing (waits for the module); empty when they are not.
    std::string MediaError();

    // From FormView: the window of a form became the active window.
    void WindowActivated(FormView& v);

private:
    struct ModalLoop {
        forms::Form* form;
        QEventLoop* loop;
        bool done;
    };

    FormView& ViewFor(forms::Form& f);
    void DropView(forms::Form* f);
    void EndModalLoop(forms::Form* f);
    void ShowError(const std::string& text);
    void QuitAllLoops();
    void ScheduleEndCheck();
    void EndCheck();
    // The window a box or dialog belongs over, and the one to give back activation to.
    QWidget* DialogParent() const;
    void ReactivateAfterDialog(QWidget* was);
    void ThrowIfEnding() const;
    QtPrintSurface& Surface();
    void PlayPendingSound();

    QString resources_;
    std::unique_ptr<QSettings> settings_;
    std::unique_ptr<QObject> anchor_;   // context of the host's timers
    std::map<const forms::Form*, FormView*> views_;
    std::vector<ModalLoop*> modal_;
    bool ending_ = false;
    bool mainLoopRunning_ = false;
    bool endCheckPending_ = false;
    int busyDepth_ = 0;
    std::unique_ptr<QtPrintSurface> printer_;
    std::unique_ptr<MediaModule> media_;
    QString pendingSound_;
    bool soundWaiting_ = false;
    std::unique_ptr<QTextBrowser> help_;
};
