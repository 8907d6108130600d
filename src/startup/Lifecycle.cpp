#include "startup/Lifecycle.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "edit/EditForm.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/frmSplash.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/Settings.h"

using namespace vb;

namespace {

bool FolderExistsNoCase(const std::string& path) {
    if (DirExists(path)) return true;
    for (const std::string& d : Dir(JoinPath(FolderOf(path), "*")))
        if (StrCompText(FileNameOf(d), FileNameOf(path)) == 0 && DirExists(d)) return true;
    return false;
}

}  // namespace

void Main(Program& p) {
    IgnoreErrors([&] { ChDir(p.AppPath); });
    p.CurrentFolder = p.AppPath;
    std::string temp = p.AppPath + "/temp";
    auto madeDataFolder = [&](bool isNew) {
        if (isNew && p.OnDataFolderCreated && DirExists(p.DataPath())) p.OnDataFolderCreated(p);
        p.host.MsgBox("Vestrel has created a folder named 'Data' in the 'Vestrel' program folder." + p.CrLf +
                      "It is recommended that you use this folder for all of your crusade files.");
    };
    if (DirExists(temp) && !Dir(temp + "/*.*").empty()) {
        // Remnants of an old installation; the user is told whether or not data/ was there.
        IgnoreErrors([&] { Kill(temp + "/*.*"); });
        IgnoreErrors([&] { RmDir(temp); });
        bool had = FolderExistsNoCase(p.DataPath());
        IgnoreErrors([&] { MkDir(p.DataPath()); });
        madeDataFolder(!had);
    }
    if (!FolderExistsNoCase(p.DataPath())) {
        IgnoreErrors([&] { MkDir(p.DataPath()); });
        madeDataFolder(true);
    }
    std::vector<std::string> leftovers = Dir(p.AppPath + "/*.??_");
    if (!leftovers.empty()) {
        for (const std::string& f : leftovers) IgnoreErrors([&] { Kill(f); });
        IgnoreErrors([&] { Kill(p.AppPath + "/setup.exe"); });
    }
    p.StartUp = true;
    p.PrepareEdit();
    p.Splash().Show(true);
    p.Edit().Show();
}

void CloseCrusade(Program& p) {
    p.File1.Close();
    if (p.IndexCount == 0 && p.IsNewFile) {
        p.host.MsgBox("There are no records in the file." + p.CrLf +
                          "This file will be deleted and you must start over with another new file next time you start Vestrel",
                      host::vbCritical, "Exit Vestrel");
        IgnoreErrors([&] { Kill(p.DataFile); });
        IgnoreErrors([&] { Kill(p.CrusadeFile("*")); });
        IgnoreErrors([&] { ChDir(p.AppPath); });
        IgnoreErrors([&] { Kill(p.SettingsPath()); });
        p.End();
    }
    if (p.Loaded) {
        SaveSettings(p);
        // A refused information file has named itself in its own box; members and zips are written all the same.
        static_cast<void>(SaveInfo(p));
        if (p.MemberCount > 0) SaveMembers(p);
        SaveZips(p);
    }
    ForgetCrusade(p);
}

void ForgetCrusade(Program& p) {
    p.MasterRec = MasterRecord{};
    ClearRecord(p.MasterRec);
    p.UndoRec = p.MasterRec;
    p.PreviousRec = p.MasterRec;
    p.SavedIndex = 0;
    if (!p.EditLoaded()) return;
    EditForm& f = p.Edit();
    f.HeldPosition = 0;
    f.FndNameBx.SetCaption("");
    f.ShowRecord();
}

bool CrusadeWritable(Program& p, const std::string& path) {
    std::string folder = FolderOf(path);
    std::string reason;
    if (FileExists(path) && ::access(path.c_str(), W_OK) != 0)
        reason = "The file is read-only.";
    else if (::access(folder.c_str(), W_OK) != 0)
        reason = "Its folder " + folder + " is read-only or missing.";
    if (reason.empty()) return true;
    p.host.MsgBox("Vestrel cannot open this crusade, because its files cannot be written:" + p.CrLf + p.CrLf + path +
                      p.CrLf + reason + p.CrLf + p.CrLf +
                      "Choose another crusade, or make the file and its folder writable (or copy the crusade "
                      "into a folder of your own) and open it again.",
                  host::vbExclamation, "Crusade Cannot Be Opened");
    return false;
}

bool OpenCrusade(Program& p, const std::function<bool()>& steps) {
    RemoveStaleTempFiles(p.DataFile);
    try {
        if (steps()) return true;
    } catch (const RuntimeError& e) {
        p.host.MsgBox("Vestrel could not open the crusade:" + p.CrLf + p.CrLf + p.DataFile + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description() + p.CrLf + p.CrLf +
                          "Nothing was changed. Choose another crusade, or check the disk and the file and "
                          "open it again.",
                      host::vbExclamation, "Crusade Cannot Be Opened");
    }
    // The lock goes with the file; nothing of the half-read crusade is written at exit.
    p.File1.Close();
    p.Loaded = false;
    p.IsNewFile = false;
    p.AddMode = false;
    return false;
}

void NoticeEmptyFile(Program& p) {
    p.IsNewFile = false;
    p.AddMode = false;
    if (p.RecordCount != 0) return;
    p.host.MsgBox("There are no records in: " + p.CrLf + p.DataFile + p.CrLf + p.CrLf +
                  "You must enter records before attempting other options." + p.CrLf + p.CrLf +
                  "DO NOT EXIT VESTREL BEFORE ENTERING AT LEAST ONE RECORD.");
    p.IsNewFile = true;
    p.AddMode = true;
}

void RemoveStaleTempFiles(const std::string& dataFile) {
    namespace fs = std::filesystem;
    std::string name = FileNameOf(dataFile);
    if (name.size() < 5) return;
    std::string base = name.substr(0, name.size() - 4);
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(FolderOf(dataFile), ec)) {
        // ".<file>.<pid>.<n>.tmp", written beside <file> by a save that never finished.
        std::string n = e.path().filename().string();
        if (n.size() < 6 || n[0] != '.' || n.substr(n.size() - 4) != ".tmp") continue;
        std::string rest = n.substr(1, n.size() - 5);
        std::size_t counterDot = rest.rfind('.');
        if (counterDot == std::string::npos || counterDot == 0) continue;
        std::size_t pidDot = rest.rfind('.', counterDot - 1);
        if (pidDot == std::string::npos) continue;
        std::string target = rest.substr(0, pidDot);
        std::string pid = rest.substr(pidDot + 1, counterDot - pidDot - 1);
        std::string counter = rest.substr(counterDot + 1);
        auto digits = [](const std::string& s) {
            return !s.empty() && s.size() < 10 && s.find_first_not_of("0123456789") == std::string::npos;
        };
        if (!digits(pid) || !digits(counter)) continue;
        bool ofSet = (target.size() == base.size() + 4 && target.compare(0, base.size(), base) == 0 &&
                      target[base.size()] == '.') ||
                     target == base + "_prayer.txt";
        if (!ofSet) continue;
        // A save still running in a live process is not stale.
        pid_t owner = static_cast<pid_t>(std::stol(pid));
        if (owner == ::getpid() || (::kill(owner, 0) == 0 || errno == EPERM)) continue;
        fs::remove(e.path(), ec);
    }
}
