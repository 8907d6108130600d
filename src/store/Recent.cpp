#include "store/Recent.h"

#include <algorithm>

#include "platform/vb/Files.h"
#include "store/State.h"

namespace {
const char* const App = "MDINote";
const char* const Section = "Recent Files";

}  // namespace

int RecentKeyNumber(const std::string& key) {
    if (key.rfind("RecentFile", 0) != 0) return 0;
    const std::string digits = key.substr(10);
    // Only the key this program writes counts: "RecentFile1e" or "RecentFile01"
    // taken as 1 would push the crusade just opened out of the first place.
    if (digits.empty() || digits.size() > 5 || digits[0] == '0' ||
        digits.find_first_not_of("0123456789") != std::string::npos)
        return 0;
    const int n = std::stoi(digits);
    // A number no menu could hold is a damaged key, as any other key.
    return n <= 32767 ? n : 0;
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
