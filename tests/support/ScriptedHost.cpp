#include "support/ScriptedHost.h"

#include <gtest/gtest.h>

#include "platform/forms/Form.h"

ScriptedHost::~ScriptedHost() { Verify(); }

ScriptedHost& ScriptedHost::ExpectBox(const std::string& textPart, int answer, std::optional<std::string> title,
                                      std::optional<int> buttons) {
    expected_.push_back({"MsgBox", textPart, title, buttons, answer, {}, {}});
    return *this;
}

ScriptedHost& ScriptedHost::ExpectInput(const std::string& textPart, const std::string& answer) {
    return Expect("InputBox", textPart, answer);
}

ScriptedHost& ScriptedHost::ExpectOpen(const std::string& titlePart, const std::string& path) {
    return Expect("Open", titlePart, path);
}

ScriptedHost& ScriptedHost::ExpectPrinter(std::function<bool(host::PrinterDialog&)> answer) {
    Expect("Printer", "", "").expected_.back().printer = std::move(answer);
    return *this;
}

ScriptedHost& ScriptedHost::AcceptPrinter(int fromPage) {
    return ExpectPrinter([fromPage](host::PrinterDialog& d) {
        d.Flags |= fromPage > 1 ? 2 : 0;
        d.FromPage = fromPage;
        d.ToPage = 1000;
        return true;
    });
}

ScriptedHost& ScriptedHost::Expect(const std::string& kind, const std::string& part, const std::string& text) {
    expected_.push_back({kind, part, std::nullopt, std::nullopt, 0, text, {}});
    return *this;
}

void ScriptedHost::OnModal(const std::string& formName, std::function<void(forms::Form&)> script) {
    modal_[formName] = std::move(script);
}

void ScriptedHost::Verify() {
    for (const Expected& e : expected_) ADD_FAILURE() << "Expected " << e.kind << " \"" << e.part << "\" was never shown";
    expected_.clear();
    if (busyDepth > 0) ADD_FAILURE() << "The busy pointer was set " << busyDepth << " more time(s) than it was put back";
    busyDepth = 0;
}

// The next expectation, taken off the script if it is this one.
std::optional<ScriptedHost::Expected> ScriptedHost::Take(const std::string& kind, const std::string& text) {
    if (expected_.empty() || expected_.front().kind != kind || text.find(expected_.front().part) == std::string::npos) {
        ADD_FAILURE() << "Unexpected " << kind << ": \"" << text << "\""
                      << (expected_.empty() ? std::string(" (nothing more was expected)")
                                            : " (expected " + expected_.front().kind + " \"" +
                                                  expected_.front().part + "\")");
        return std::nullopt;
    }
    Expected e = std::move(expected_.front());
    expected_.pop_front();
    return e;
}

int ScriptedHost::MsgBox(const std::string& prompt, int buttons, const std::string& title) {
    shown.push_back({"MsgBox", prompt, title, buttons});
    auto e = Take("MsgBox", prompt);
    if (!e) return (buttons & 7) == host::vbYesNo || (buttons & 7) == host::vbYesNoCancel ? host::vbNo : host::vbOK;
    EXPECT_EQ(e->title.value_or(title), title) << "title of the box \"" << prompt << "\"";
    EXPECT_EQ(e->buttons.value_or(buttons), buttons) << "buttons of the box \"" << prompt << "\"";
    return e->answer;
}

std::string ScriptedHost::InputBox(const std::string& prompt, const std::string& title, const std::string& def) {
    shown.push_back({"InputBox", prompt, title, 0});
    auto e = Take("InputBox", prompt + "\n" + title);
    return e ? e->text : def;
}

bool ScriptedHost::FileDialog(const std::string& kind, host::FileDialog& d) {
    shown.push_back({kind, d.DialogTitle, d.DialogTitle, 0});
    auto e = Take(kind, d.DialogTitle);
    if (!e || e->text.empty()) return false;
    d.FileName = e->text;
    return true;
}

bool ScriptedHost::ShowOpen(host::FileDialog& d) { return FileDialog("Open", d); }
bool ScriptedHost::ShowSave(host::FileDialog& d) { return FileDialog("Save", d); }

bool ScriptedHost::ShowPrinter(host::PrinterDialog& d) {
    shown.push_back({"Printer", "", "", 0});
    auto e = Take("Printer", "");
    return e && (!e->printer || e->printer(d));
}

void ScriptedHost::ShowForm(forms::Form& f, bool modal) {
    shown.push_back({"Form", f.Name(), "", modal ? 1 : 0});
    f.SetVisibleFlag(true);
    forms::ActivateForm(*this, &f);
    if (!modal) return;
    auto it = modal_.find(f.Name());
    if (it == modal_.end()) {
        ADD_FAILURE() << "Modal form " << f.Name() << " was shown but the test has no script for it";
        f.Unload();
        return;
    }
    modalStack_.push_back(&f);
    auto script = it->second;   // a copy: the script may replace itself
    script(f);
    modalStack_.pop_back();
    if (f.Visible()) {
        ADD_FAILURE() << "Modal form " << f.Name() << " was left open by the test's script";
        f.Unload();
    }
}

void ScriptedHost::HideForm(forms::Form& f) {
    f.SetVisibleFlag(false);
    if (ActiveForm() == &f) ForgetForm(&f);
}

void ScriptedHost::UnloadForm(forms::Form& f) { f.SetVisibleFlag(false); }

void ScriptedHost::SetBusy(bool busy) {
    if (!busy && busyDepth == 0) ADD_FAILURE() << "The busy pointer was put back without being set";
    busyDepth += busy ? 1 : -1;
}

int ScriptedHost::OpenDocument(const std::string& path) { return opened.push_back(path), openResult; }

void ScriptedHost::ShowHelp(const std::string& file, int command, int context) {
    helpShown.push_back(file + "|" + std::to_string(command) + "|" + std::to_string(context));
}

static std::string Key(const std::string& app, const std::string& section, const std::string& key) {
    return app + "/" + section + "/" + key;
}

std::string ScriptedHost::GetSetting(const std::string& app, const std::string& section, const std::string& key,
                                     const std::string& def) {
    auto it = settings.find(Key(app, section, key));
    return it == settings.end() ? def : it->second;
}

void ScriptedHost::SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                               const std::string& value) {
    settings[Key(app, section, key)] = value;
}

std::vector<std::pair<std::string, std::string>> ScriptedHost::GetAllSettings(const std::string& app,
                                                                              const std::string& section) {
    std::vector<std::pair<std::string, std::string>> out;
    std::string prefix = Key(app, section, "");
    for (const auto& [k, v] : settings)
        if (k.rfind(prefix, 0) == 0) out.emplace_back(k.substr(prefix.size()), v);
    return out;
}

void ScriptedHost::DeleteSetting(const std::string& app, const std::string& section, const std::string& key) {
    settings.erase(Key(app, section, key));
}
