#include "store/Settings.h"

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

void LoadSettings(ProgramState& p) {
    try {
        TextReader in(p.SettingsPath());
        p.DataFile = in.InputString();
        in.InputString();   // "Available"
        p.ShowButtonLabels = in.InputLong() != 0;
        p.LabelTop = in.InputLong();
        p.LabelRight = in.InputLong();
    } catch (const RuntimeError&) {
        // A short or missing file loads what it can.
    }
    if (!p.DataFile.empty() && FileExists(p.DataFile)) {
        p.DataFolder = FolderOf(p.DataFile);
        IgnoreErrors([&] { ChDir(p.DataFolder); });
        p.CurrentFolder = p.DataFolder;
    } else {
        p.DataFile.clear();
        p.DataFolder.clear();
    }
}

void SaveSettings(ProgramState& p) {
    IgnoreErrors([&] { ChDir(p.AppPath); });
    TextWriter w;
    try {
        w.Open(p.SettingsPath(), TextWriter::Mode::Output, true);
        w.PrintLine(p.DataFile);
        w.PrintLine("Available");
        w.PrintLine(p.ShowButtonLabels ? -1L : 0L);
        w.PrintLine(p.LabelTop);
        w.PrintLine(p.LabelRight);
        w.Close();
    } catch (const RuntimeError& e) {
        w.Abandon();
        p.host.MsgBox("The settings file could not be written:" + p.CrLf + p.SettingsPath() + p.CrLf +
                          "Error # " + CStr(e.Number) + ": " + e.Description(),
                      host::vbExclamation, "File Error");
    }
}
