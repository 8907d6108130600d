#include "store/Recent.h"

#include <algorithm>
#include <cmath>

#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

namespace {
const char* const App = "MDINote";
const char* const Section = "Recent Files";

}  // namespace

int RecentKeyNumber(const std::string& key) {
    if (key.rfind("RecentFile", 0) != 0) return 0;
    double n = vb::Val(key.substr(10));
    // A number no menu could hold is a damaged key, as any other key.
    if (!std::isfinite(n) || n < 1 || n > 32767) return 0;
    return static_cast<int>(n);
}

std::vector<std::pair<std::string, std::string>> RecentFiles(ProgramState& p) {
    auto all = p.host.GetAllSettings(App, Section);
    std::erase_if(all, [](const auto& kv) { return RecentKeyNumber(kv.first) == 0; });
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& a, const auto& b) { return RecentKeyNumber(a.first) < RecentKeyNumber(b.first); });
    return all;
}

void AddRecentFile(ProgramState& p, const std::string& path) {
    // Each key moves up by one, the highest first; empty and damaged keys stay where they are.
    std::vector<std::pair<int, std::string>> keys;
    for (const auto& [key, value] : p.host.GetAllSettings(App, Section)) {
        int n = RecentKeyNumber(key);
        if (n > 0 && !value.empty()) keys.emplace_back(n, value);
    }
    std::sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    for (const auto& [n, value] : keys) p.host.SaveSetting(App, Section, "RecentFile" + std::to_string(n + 1), value);
    p.host.SaveSetting(App, Section, "RecentFile1", path);
}
