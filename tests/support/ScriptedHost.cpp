#include "support/ScriptedHost.h"

#include <gtest/gtest.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

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

ScriptedHost& ScriptedHost::ExpectSave(const std::string& titlePart, const std::string& path) {
    return Expect("Save", titlePart, path);
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

std::optional<std::string> ScriptedHost::HttpGet(const std::string& url) {
    fetched.push_back(url);
    const std::string scheme = "http://";
    if (url.compare(0, scheme.size(), scheme) != 0) return std::nullopt;
    const std::size_t slash = url.find('/', scheme.size());
    const std::string authority = url.substr(scheme.size(), slash - scheme.size());
    const std::string path = slash == std::string::npos ? "/" : url.substr(slash);
    const std::size_t colon = authority.rfind(':');
    const std::string hostName = authority.substr(0, colon);
    const std::string port = colon == std::string::npos ? "80" : authority.substr(colon + 1);
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(hostName.c_str(), port.c_str(), &hints, &found) != 0) return std::nullopt;
    const int fd = ::socket(found->ai_family, found->ai_socktype, found->ai_protocol);
    const bool connected = fd >= 0 && ::connect(fd, found->ai_addr, found->ai_addrlen) == 0;
    ::freeaddrinfo(found);
    if (!connected) {
        if (fd >= 0) ::close(fd);
        return std::nullopt;
    }
    const std::string request = "GET " + path + " HTTP/1.0\r\nHost: " + authority + "\r\n\r\n";
    std::string reply;
    bool whole = ::send(fd, request.data(), request.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(request.size());
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(webTimeoutMs);
    while (whole) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        pollfd pfd{fd, POLLIN, 0};
        if (left.count() <= 0 || ::poll(&pfd, 1, static_cast<int>(left.count())) <= 0) {
            whole = false;   // no answer in time
            break;
        }
        char buf[4096];
        const ssize_t n = ::recv(fd, buf, sizeof buf, 0);
        if (n < 0) whole = false;
        if (n <= 0) break;
        reply.append(buf, static_cast<std::size_t>(n));
    }
    ::close(fd);
    const std::size_t head = reply.find("\r\n\r\n");
    if (!whole || head == std::string::npos || (reply.compare(0, 12, "HTTP/1.0 200") != 0 && reply.compare(0, 12, "HTTP/1.1 200") != 0))
        return std::nullopt;
    return reply.substr(head + 4);
}
