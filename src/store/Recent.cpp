#include "store/Recent.h"

#include <algorithm>

#include "edit/EditForm.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Program.h"

namespace {
const char* const App = "MDINote";
const char* const Section = "Recent Files";

int KeyNumber(const std::string& key) {
    return key.rfind("RecentFile", 0) == 0 ? static_cast<int>(vb::Val(key.substr(10))) : 0;
}
}  // namespace

void UpdateRecentMenu(Program& p) {
    EditForm& f = p.Edit();
    auto all = p.host.GetAllSettings(App, Section);
    std::sort(all.begin(), all.end(),
              [](const auto& a, const auto& b) { return KeyNumber(a.first) < KeyNumber(b.first); });
    int shown = 0;
    for (const auto& [key, path] : all) {
        if (shown >= 4) break;
        if (path.empty() || !vb::FileExists(path)) continue;
        ++shown;
        f.mnuRecentFile[shown].SetCaption(path);
        f.mnuRecentFile[shown].SetVisible(true);
        f.mnuRecentFile[0].SetVisible(true);
    }
}

void AddRecentFile(Program& p, const std::string& path) {
    auto all = p.host.GetAllSettings(App, Section);
    int highest = 0;
    for (const auto& kv : all) highest = std::max(highest, KeyNumber(kv.first));
    for (int n = highest; n >= 1; --n) {
        std::string v = p.host.GetSetting(App, Section, "RecentFile" + std::to_string(n));
        if (v.empty()) continue;
        p.host.SaveSetting(App, Section, "RecentFile" + std::to_string(n + 1), v);
    }
    p.host.SaveSetting(App, Section, "RecentFile1", path);
}

void RememberFile(Program& p, const std::string& path) {
    EditForm& f = p.Edit();
    bool present = false;
    for (int i = 1; i <= 4; ++i)
        if (f.mnuRecentFile[i].Visible() && f.mnuRecentFile[i].Caption() == path) present = true;
    if (!present) AddRecentFile(p, path);
    UpdateRecentMenu(p);
}
