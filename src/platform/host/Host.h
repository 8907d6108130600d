#pragma once
// Everything that leaves the program goes through Host: boxes, dialogs, showing
// forms, the busy pointer, sound, the desktop's viewer, the web, help, the clock,
// the settings store and the printer.
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/PrintSurface.h"
#include "platform/vb/DateTime.h"

namespace forms { class Form; }

namespace host {

// MsgBox buttons, icons and results, with the runtime's values.
enum MsgBoxStyle : int {
    vbOKOnly = 0, vbOKCancel = 1, vbAbortRetryIgnore = 2, vbYesNoCancel = 3, vbYesNo = 4,
    vbRetryCancel = 5, vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64,
    vbDefaultButton2 = 256, vbDefaultButton3 = 512,
};
enum MsgBoxResult : int { vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7 };

struct FileDialog {
    std::string DialogTitle;
    std::string Filter;        // "Crusade Files (*.dta)|*.dta|Crusade Files"
    int FilterIndex = 1;
    std::string InitDir;
    std::string FileName;      // in: proposed name; out: chosen path
    bool HideReadOnly = false;
    bool MustExist = false;    // the open dialog accepts a typed new name unless set
};

// Ends the process, as the runtime's End statement: unwinds to main, which exits.
struct EndProgram {};

class Host {
public:
    virtual ~Host() = default;

    // Text is Windows-1252; lines are joined by CR LF. Returns an MsgBoxResult.
    virtual int MsgBox(const std::string& prompt, int buttons = vbOKOnly, const std::string& title = "") = 0;
    // Cancel reads as empty.
    virtual std::string InputBox(const std::string& prompt, const std::string& title = "",
                                 const std::string& defaultText = "") = 0;
    // False when cancelled; otherwise d.FileName holds the chosen path.
    virtual bool ShowOpen(FileDialog& d) = 0;
    virtual bool ShowSave(FileDialog& d) = 0;
    // False when cancelled.
    virtual bool ShowPrinter(PrinterDialog& d) = 0;
    // The printer the reports draw on; a document starts with the first drawing call.
    virtual PrintSurface& Printer() = 0;

    // Forms. A modal show returns when the form has been unloaded or hidden.
    virtual void ShowForm(forms::Form& f, bool modal) = 0;
    virtual void HideForm(forms::Form& f) = 0;
    virtual void UnloadForm(forms::Form& f) = 0;
    // Paint pending changes now (Refresh / DoEvents around long routines).
    virtual void Refresh(forms::Form& f) = 0;
    // Work done ahead while the operator reads the first window: runs once, after
    // the next window has been drawn. A host without a screen never runs it.
    virtual void AfterFirstPaint(std::function<void()> work) { (void)work; }
    // Builds the window of a form ahead of its first Show; the form stays as it is.
    virtual void PrepareForm(forms::Form& f) { (void)f; }

    virtual void SetBusy(bool busy) = 0;
    // Plays a wave file without waiting; a missing file is silent.
    virtual void PlayWave(const std::string& path) = 0;
    // Opens a file with the desktop's viewer: above 32 on success, 2 when the file
    // is missing, 1 when nothing can open it.
    virtual int OpenDocument(const std::string& path) = 0;
    // One synchronous GET; nothing on failure.
    virtual std::optional<std::string> HttpGet(const std::string& url) = 0;
    // Shows the program's help (command 3: contents, 1: the topic of context).
    virtual void ShowHelp(const std::string& file, int command, int context) = 0;
    virtual vb::DateTime Now() = 0;

    // Settings store of the platform (application, section, key).
    virtual std::string GetSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& def = "") = 0;
    virtual void SaveSetting(const std::string& app, const std::string& section,
                             const std::string& key, const std::string& value) = 0;
    virtual std::vector<std::pair<std::string, std::string>> GetAllSettings(const std::string& app,
                                                                            const std::string& section) = 0;
    virtual void DeleteSetting(const std::string& app, const std::string& section, const std::string& key) = 0;

    // Which of the program's forms is active. The form model changes it
    // (forms::ActivateForm), which also fires Activate and Deactivate.
    forms::Form* ActiveForm() const { return activeForm_; }
    void SetActiveForm(forms::Form* f) { activeForm_ = f; }
    // A form that is unloaded, or destroyed, is no longer the active one. A host
    // with windows drops the form's window here.
    virtual void ForgetForm(forms::Form* f) { if (activeForm_ == f) activeForm_ = nullptr; }

private:
    forms::Form* activeForm_ = nullptr;
};

// The busy pointer for as long as the guard lives; it cannot be copied, so it is
// put back exactly once, also when the work throws.
class BusyPointer {
public:
    explicit BusyPointer(Host& host) : h_(host) { h_.SetBusy(true); }
    ~BusyPointer() { h_.SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Host& h_;
};

}  // namespace host
