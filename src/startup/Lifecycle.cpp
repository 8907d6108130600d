#include "startup/Lifecycle.h"

#include "edit/EditForm.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/frmSplash.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Settings.h"

using namespace vb;

namespace {

template <class F>
void IgnoringErrors(F f) {
    try {
        f();
    } catch (const RuntimeError&) {
    }
}

bool FolderExistsNoCase(const std::string& path) {
    if (DirExists(path)) return true;
    for (const std::string& d : Dir(JoinPath(FolderOf(path), "*")))
        if (StrCompText(FileNameOf(d), FileNameOf(path)) == 0 && DirExists(d)) return true;
    return false;
}

}  // namespace

void Main(Program& p) {
    IgnoringErrors([&] { ChDir(p.AppPath); });
    p.CurrentFolder = p.AppPath;
    std::string temp = p.AppPath + "/temp";
    auto madeDataFolder = [&] {
        if (p.OnDataFolderCreated && DirExists(p.DataPath())) p.OnDataFolderCreated(p);
        p.host.MsgBox("Vestrel has created a folder named 'Data' in the 'Vestrel' program folder." + p.CrLf +
                      "It is recommended that you use this folder for all of your crusade files.");
    };
    if (DirExists(temp) && !Dir(temp + "/*.*").empty()) {
        // Remnants of an old installation.
        IgnoringErrors([&] { Kill(temp + "/*.*"); });
        IgnoringErrors([&] { RmDir(temp); });
        bool had = FolderExistsNoCase(p.DataPath());
        IgnoringErrors([&] { MkDir(p.DataPath()); });
        if (!had) madeDataFolder();
    }
    if (!FolderExistsNoCase(p.DataPath())) {
        IgnoringErrors([&] { MkDir(p.DataPath()); });
        madeDataFolder();
    }
    std::vector<std::string> leftovers = Dir(p.AppPath + "/*.??_");
    if (!leftovers.empty()) {
        for (const std::string& f : leftovers) IgnoringErrors([&] { Kill(f); });
        IgnoringErrors([&] { Kill(p.AppPath + "/setup.exe"); });
    }
    p.StartUp = true;
    p.Splash().Show(true);
    p.Edit().Show();
}

void CloseCrusade(Program& p) {
    p.File1.Close();
    if (p.IndexCount == 0 && p.IsNewFile) {
        p.host.MsgBox("There are no records in the file." + p.CrLf +
                          "This file will be deleted and you must start over with another new file next time you start Vestrel",
                      host::vbCritical, "Exit Vestrel");
        IgnoringErrors([&] { Kill(p.DataFile); });
        IgnoringErrors([&] { Kill(p.CrusadeFile("*")); });
        IgnoringErrors([&] { ChDir(p.AppPath); });
        IgnoringErrors([&] { Kill(p.SettingsPath()); });
        p.End();
    }
    if (p.Loaded) {
        SaveSettings(p);
        SaveInfo(p);
        if (p.MemberCount > 0) SaveMembers(p);
        SaveZips(p);
    }
}
