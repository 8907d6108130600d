// The import of a comma-separated file and the update check: the questions and
// the screen here, the file work in exchange/.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "exchange/Import.h"
#include "exchange/ImportPreview.h"
#include "exchange/Update.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Sounds.h"

using namespace vb;

void EditForm::WireExchange() {
    mnuImportText.Click = [this] { mnuImportText_Click(); };
    mnuUpdate.Click = [this] { exchange::CheckForUpdate(p); };
}

void EditForm::mnuImportText_Click() {
    const std::string& nl = p.CrLf;
    if (p.host.MsgBox("In order to import a file from Excel you must first export the data from Excel as a '.csv' file." +
                          nl + "You must also be prepared to tell Vestrel the number of columns in the Excel file that you will be importing.",
                      host::vbOKCancel, "Import Text File into Interest File") == host::vbCancel)
        return;
    if (p.IndexCount != 0 && !SaveChanges()) return;
    host::FileDialog d;
    d.DialogTitle = "Import Excel File into Vestrel";
    d.Filter = "Text Files (*.csv)|*.csv|Text Files";
    d.InitDir = p.DataFolder;
    if (!p.host.ShowOpen(d)) return;
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("You will Import the records from:" + nl + "      " + d.FileName + nl +
                          "into the Vestrel Program Database: " + nl + "      " + p.DataFile + nl +
                          "Is this what you want to do?",
                      host::vbYesNo | host::vbCritical) != host::vbYes)
        return;
    // The file read is the one beside the crusade under its name, whatever was picked;
    // the preview says so when the two differ.
    const std::string path = p.CrusadeFile("csv");
    exchange::ImportFile file;
    try {
        file = exchange::ReadImportFile(path);
    } catch (const RuntimeError& e) {
        p.host.MsgBox(e.Number == errFileNotFound
                          ? "Vestrel imports only the file beside the crusade under the crusade's name:" + nl + "      " +
                                path + nl + "There is no such file. Copy or save your '.csv' file there and try again."
                          : "The file " + path + " could not be read." + nl + "Error # " + CStr(e.Number) + ": " +
                                e.Description(),
                      host::vbExclamation, "Import Text File into Interest File");
        return;
    }
    const std::vector<exchange::ImportWarning> warnings = exchange::CheckImport(p, file);
    {
        exchange::ImportPreview preview(p.host);
        if (!preview.Ask(file, warnings, d.FileName, exchange::ImportRoom(p))) return;
    }
    long added = 0;
    try {
        added = exchange::AppendImport(p, file);
    } catch (const RuntimeError& e) {
        p.host.MsgBox("The people could not be added to " + p.DataFile + "." + nl + "Error # " + CStr(e.Number) + ": " +
                          e.Description() + nl + "The crusade is as it was before the import.",
                      host::vbExclamation, "Import Text File into Interest File");
        return;
    }
    if (file.partialLine > 0)
        p.host.MsgBox("The file ends in the middle of the person on line " + CStr(file.partialLine) + "." + nl +
                          CStr(added) + (added == 1 ? " person was" : " people were") +
                          " imported; that last person was not.",
                      host::vbExclamation, "Import Text File into Interest File");
    if (p.IndexCount == 0) return;
    if (FetchCurrentRecord(p)) ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("");
}
