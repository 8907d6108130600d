#include "store/Recent.h"

#include <algorithm>

#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

namespace {
const char* const App = "MDINote";
const char* const Section = "Recent Files";

}  // namespace

int RecentKeyNumber(const std::string& key) {
    return key.rfind("RecentFile", 0) == 0 ? static_cast<int>(vb::Val(key.substr(10))) : 0;
}

std::vector<std::pair<std::string, std::string>> RecentFiles(ProgramState& p) {
    auto all = p.host.GetAllSettings(App, Section);
    std::sort(all.begin(), all.end(),
              [](const auto& a, const auto& b) { return RecentKeyNumber(a.first) < RecentKeyNumber(b.first); });
    return all;
}

void AddRecentFile(ProgramState& p, const std::string& path) {
    auto all = p.host.GetAllSettings(App, Section);
    int highest = 0;
    for (const auto& kv : all) highest = std::max(highest, RecentKeyNumber(kv.first));
    for (int n = highest; n >= 1; --n) {
        std::string v = p.host.GetSetting(App, Section, "RecentFile" + std::to_string(n));
        if (v.empty()) continue;
        p.host.SaveSetting(App, Section, "RecentFile" + std::to_string(n + 1), v);
    }
    p.host.SaveSetting(App, Section, "RecentFile1", path);
}
