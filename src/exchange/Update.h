#pragma once
// mnuUpdate: whether a newer version is on the web. One GET, only when the
// operator asks, through the host (which times out and keeps the window alive).
#include <optional>
#include <string>

struct ProgramState;

namespace exchange {

// Where the update server's host is kept: the settings store, app "MDINote",
// section "Update", key "Host" (in the desktop's settings-store.ini, section
// [MDINote], line Update\Host=...). A bare host name is asked over HTTPS.
inline constexpr const char* UpdateApp = "MDINote";
inline constexpr const char* UpdateSection = "Update";
inline constexpr const char* UpdateKey = "Host";
inline constexpr const char* UpdatePath = "/ormandy/version.txt";

// The URL of the version file for the host setting; empty when none is set.
std::string UpdateUrl(const std::string& hostSetting);

struct VersionText {
    int minor = 0;
    int revision = 0;
};
// Characters 4-5 are the minor version, the last two the revision; the line end
// a web server adds is not part of the text. Nothing when the text is no version.
std::optional<VersionText> ReadVersionText(const std::string& body);

// The whole menu entry: the first box, the fetch, the comparison, the boxes.
void CheckForUpdate(ProgramState& p);

}  // namespace exchange
