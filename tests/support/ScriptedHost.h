#pragma once
// A strict host for tests: every box, dialog and modal form a test expects is
// stated in order with its answer; anything else fails the test and prints
// its text. The clock is fixed.
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/QuietHost.h"

class ScriptedHost : public QuietHost {
public:
    ~ScriptedHost() override;   // runs Verify

    struct Shown {
        std::string kind;   // "MsgBox", "InputBox", "Open", "Save", "Printer", "Form"
        std::string text;
        std::string title;
        int buttons = 0;
    };

    // Expectations, met in order, by a part of the box's text; a title or buttons left out are not checked.
    ScriptedHost& ExpectBox(const std::string& textPart, int answer = host::vbOK,
                            std::optional<std::string> title = std::nullopt, std::optional<int> buttons = std::nullopt);
    ScriptedHost& ExpectInput(const std::string& textPart, const std::string& answer);
    // An empty path answers Cancel.
    ScriptedHost& ExpectOpen(const std::string& titlePart, const std::string& path);
    ScriptedHost& ExpectSave(const std::string& titlePart, const std::string& path);
    ScriptedHost& ExpectPrinter(std::function<bool(host::PrinterDialog&)> answer);
    // OK on the printer dialog, printing from `fromPage` on (a page range only past page 1).
    ScriptedHost& AcceptPrinter(int fromPage = 1);
    // The script that runs while a modal form of this name is shown; it must close it.
    void OnModal(const std::string& formName, std::function<void(forms::Form&)> script);
    // All expectations met and the busy pointer back to normal? Fails the test otherwise.
    void Verify();

    std::vector<Shown> shown;
    std::vector<std::string> sounds;
    std::vector<std::string> helpShown;
    std::vector<std::string> opened;
    int openResult = 33;
    std::map<std::string, std::string> settings;   // "app/section/key"
    int busyDepth = 0;
    // The web: a plain GET of an http:// URL (a loopback server the test runs),
    // given up after webTimeoutMs; every URL asked for is kept.
    std::vector<std::string> fetched;
    int webTimeoutMs = 2000;

    int MsgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title, const std::string& def) override;
    bool ShowOpen(host::FileDialog& d) override;
    bool ShowSave(host::FileDialog& d) override;
    bool ShowPrinter(host::PrinterDialog& d) override;
    void ShowForm(forms::Form& f, bool modal) override;
    void HideForm(forms::Form& f) override;
    void UnloadForm(forms::Form& f) override;
    void SetBusy(bool busy) override;
    void PlayWave(const std::string& path) override { sounds.push_back(path); }
    int OpenDocument(const std::string& path) override;
    std::optional<std::string> HttpGet(const std::string& url) override;
    void ShowHelp(const std::string& file, int command, int context) override;
    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& def) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;
    std::vector<std::pair<std::string, std::string>> GetAllSettings(const std::string& app,
                                                                    const std::string& section) override;
    void DeleteSetting(const std::string& app, const std::string& section, const std::string& key) override;

private:
    struct Expected {
        std::string kind;
        std::string part;
        std::optional<std::string> title;
        std::optional<int> buttons;
        int answer = 0;
        std::string text;
        std::function<bool(host::PrinterDialog&)> printer;
    };
    ScriptedHost& Expect(const std::string& kind, const std::string& part, const std::string& text);
    std::optional<Expected> Take(const std::string& kind, const std::string& text);
    bool FileDialog(const std::string& kind, host::FileDialog& d);
    std::deque<Expected> expected_;
    std::map<std::string, std::function<void(forms::Form&)>> modal_;
    std::vector<forms::Form*> modalStack_;
};
