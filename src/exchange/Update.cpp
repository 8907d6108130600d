#include "exchange/Update.h"

#include <algorithm>

#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

namespace exchange {

namespace {
bool Digits(const std::string& s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string TwoDigits(int v) { return v < 10 ? "0" + std::to_string(v) : std::to_string(v); }
}  // namespace

std::string UpdateUrl(const std::string& hostSetting) {
    std::string h = Trim(hostSetting);
    while (!h.empty() && h.back() == '/') h.pop_back();
    if (h.empty()) return "";
    if (h.find("://") == std::string::npos) h = "https://" + h;
    return h + UpdatePath;
}

std::optional<VersionText> ReadVersionText(const std::string& body) {
    std::string t = body;
    while (!t.empty() && (t.back() == '\r' || t.back() == '\n' || t.back() == ' ')) t.pop_back();
    // An empty answer, an error page or a cut one would read as version 0 and be
    // taken for an old file; it is said to be no version instead.
    if (t.size() < 5 || t.size() > 20) return std::nullopt;
    const std::string minor = Mid(t, 4, 2), revision = Right(t, 2);
    if (!Digits(minor) || !Digits(revision)) return std::nullopt;
    return VersionText{static_cast<int>(Val(minor)), static_cast<int>(Val(revision))};
}

void CheckForUpdate(ProgramState& p) {
    const std::string& nl = p.CrLf;
    int answer = p.host.MsgBox(
        "In order to automatically update Vestrel, your computer must" + nl + "be connected to the internet." + nl +
            "If you are not currently connected," + nl +
            "You can click OK and Vestrel will attempt to connect automatically." + nl +
            "Or you can click 'Cancel' and maunally" + nl + " establish a connection before trying again." + nl +
            "1. Download the file to your hard drive" + nl + "2. When download is complete you must exit Vestrel." +
            nl +
            "3. Click the open button or double click the downloaded file, 'Vestrel Update.exe' in order to complete "
            "the upgrade." +
            nl + "4. Restart Vestrel after successfully updating in order to use the new program.",
        host::vbOKCancel | host::vbExclamation, "Vestrel Update");
    if (answer == host::vbCancel) return;
    const std::string url = UpdateUrl(p.host.GetSetting(UpdateApp, UpdateSection, UpdateKey, ""));
    if (url.empty()) {
        // The server is the deployment's to name; without one there is nothing to ask.
        p.host.MsgBox("No update server is set for this copy of Vestrel." + nl +
                          "Its address is the line Update\\Host= in the [MDINote] section of settings-store.ini, "
                          "in the program folder.",
                      host::vbExclamation, "Vestrel Update");
        return;
    }
    std::optional<std::string> body;
    {
        host::BusyPointer busy(p.host);
        body = p.host.HttpGet(url);
    }
    if (!body) {
        p.host.MsgBox("Vestrel was unable to find an internet connection.Insure that you are connected to the internet "
                      "and try Update Vestrel again.");
        return;
    }
    std::optional<VersionText> v = ReadVersionText(*body);
    if (!v) {
        p.host.MsgBox("The update server's answer (" + url + ") is not a version number," + nl +
                          "so Vestrel cannot tell whether a newer version is available.",
                      host::vbExclamation, "Vestrel Update");
        return;
    }
    // Read by position, as the version file is written; a newer version is not announced here.
    if (v->minor >= VersionMinor && v->revision <= VersionRevision) {
        std::string text = *body;
        while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) text.pop_back();
        p.host.MsgBox("The lastest update available is:            " + text + nl +
                      "Your current version of Vestrel is:      " + TwoDigits(VersionMajor) + "." +
                      TwoDigits(VersionMinor) + "." + TwoDigits(VersionRevision) + nl +
                      "You have the latest version of Vestrel" + nl +
                      "There are no new updates available for your Version of Vestrel.");
    }
}

}  // namespace exchange
