// The export routines: the operator's question, the file dialog, the file
// written aside and renamed into place, and the closing message.
#include "exchange/Export.h"

#include "platform/host/Host.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace host;
using vb::CStr;

namespace exchange {
namespace {

const char* const MergeFilter = "Crusade Files (*.doc)|*.doc|Crusade Files";
const char* const MergeDone = "The file containing Mail Merge Data is found in ";

// Why a file could not be written, in the operator's words.
std::string Reason(const vb::RuntimeError& e) {
    switch (e.Number) {
    case vb::errDiskFull: return "The disk is full.";
    case vb::errPermissionDenied:
    case vb::errPathFileAccess: return "This folder cannot be written to, or the name is taken by a folder.";
    case vb::errPathNotFound: return "This folder does not exist.";
    default: return e.Description() + ".";
    }
}

// The save dialog; empty when cancelled. A name typed without an extension
// gets the one of the filter chosen, as the dialog of the old desktop added it.
std::string AskPath(ProgramState& p, const std::string& title, const std::string& filter, const std::string& file) {
    FileDialog d;
    d.DialogTitle = title;
    d.Filter = filter;
    d.InitDir = p.AppPath;
    d.FileName = vb::JoinPath(p.AppPath, file);
    if (!p.host.ShowSave(d) || d.FileName.empty()) return std::string();
    std::string path = d.FileName;
    if (vb::InStr(vb::FileNameOf(path), ".") == 0) {
        const std::string ext = d.FilterIndex == 2 && vb::InStr(filter, "*.csv") > 0 ? ".csv" : ".txt";
        path += ext;
    }
    return path;
}

// The mail-list question of the mail merge and the map file: vbYes leaves out
// the persons not on the mail list, vbNo keeps them, vbCancel stops.
int AskMailList(ProgramState& p, const std::string& opening, const std::string& title,
                const std::string& advice = "") {
    const std::string& nl = p.CrLf;
    return p.host.MsgBox(opening + nl + "Click Yes to eliminate the names which are not on the mail list." + nl +
                             "Click No to include all of the selected names, even those not on the mail list." + nl +
                             "Click Cancel to exit and change the filter" + advice,
                         vbYesNoCancel, title);
}

std::string Words(const ProgramState& p) {
    std::string w = ListWords(p);
    if (w == "all names" && p.PrintCutOff >= 2)
        w += p.CrLf + "You have also chosen to eliminate those who have not attended since night number: " +
             CStr(p.PrintCutOff);
    return w;
}

// Makes the bytes under the busy pointer, writes them, and tells where they went.
template <class Make>
std::string Finish(ProgramState& p, const std::string& path, Make make, const std::string& done) {
    bool ok;
    {
        BusyPointer busy(p.host);
        ok = WriteExport(p, path, make());
    }
    if (!ok) return std::string();
    p.host.MsgBox(done + path);
    return path;
}

}  // namespace

bool WriteExport(ProgramState& p, const std::string& path, const std::string& bytes) {
    vb::TextWriter out;
    try {
        out.Open(path, vb::TextWriter::Mode::Output, /*atomic*/ true);
        out.Write(bytes);
        out.Close();
        return true;
    } catch (const vb::RuntimeError& e) {
        out.Abandon();
        const std::string& nl = p.CrLf;
        p.host.MsgBox("The file could not be written:" + nl + path + nl + nl + Reason(e) + nl + nl +
                          "Nothing has been saved under this name; a file that was there before is as it was.",
                      vbExclamation);
        return false;
    }
}

std::string MailMerge(ProgramState& p) {
    const std::string& nl = p.CrLf;
    const int answer = AskMailList(
        p,
        "You have selected to write a MailMerge file for " + Words(p) + nl +
            "In addition you can choose to eliminate the names not on the mail list.",
        "Mail Merge Options",
        // Said before the dialog, for the operator who uses the word processor's macros.
        nl + nl + "If you are going to use the Vestrel macros, for MS Word for Windows, you must write the merge file to:" +
            nl + "    'C:\\Program Files\\Vestrel\\Data\\VestMerge.doc.'");
    if (answer == vbCancel) return std::string();
    const std::string path = AskPath(p, "Create a MailMerge File", MergeFilter, "VestMerg.Doc");
    if (path.empty()) return path;
    return Finish(p, path, [&] { return MailMergeText(p, answer == vbYes); }, MergeDone);
}

std::string MapExport(ProgramState& p) {
    const std::string& nl = p.CrLf;
    const int answer = AskMailList(p,
                                   "You have selected to Export a text file for Maping." + nl + "Filter: " + Words(p) +
                                       nl +
                                       "It is suggested that you choose to eliminate the names not on the mail list "
                                       "in order to remove duplicate addresses.",
                                   "Export to Maping");
    if (answer == vbCancel) return std::string();
    // The map file is text, so its dialog offers text files.
    const std::string path = AskPath(p, "Export File for Maping", "Text (*.txt)|*.txt", "VestrelMapFile.txt");
    if (path.empty()) return path;
    return Finish(p, path, [&] { return MapText(p, answer == vbYes); }, MergeDone);
}

std::string EMailExport(ProgramState& p) {
    const std::string path = AskPath(p, "Create an E-Mail File", "Text (*.txt)|*.txt|CSV (*.csv)|*.csv", "Vestrel_EMail");
    if (path.empty()) return path;
    return Finish(p, path, [&] { return EMailText(p); }, "The file containing E-Mail Data is found in ");
}

std::string TextExport(ProgramState& p) {
    const std::string path = vb::Left(p.DataFile, static_cast<long>(p.DataFile.size()) - 4) + ".txt";
    return Finish(p, path, [&] { return TextFileText(p); }, "The Text File has been Saved to: ");
}

std::string NameAndNumberExport(ProgramState& p) {
    const std::string path = AskPath(p, "Create a MailMerge File", MergeFilter, "VestMerg.Doc");
    if (path.empty()) return path;
    return Finish(p, path, [&] { return NameAndNumberText(p); }, MergeDone);
}

std::string DuplicateNamesExport(ProgramState& p) {
    const std::string path = AskPath(p, "Create a MailMerge File", MergeFilter, "VestMerg.Doc");
    if (path.empty()) return path;
    return Finish(p, path, [&] { return DuplicateNamesText(p); }, MergeDone);
}

}  // namespace exchange
