#include "exchange/ImportPreview.h"

#include <algorithm>

#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"

using namespace forms;
using namespace vb;

namespace exchange {

namespace {
constexpr int px = TwipsPerPixel;
// Widths on screen; a longer text is shown cut, as the record will hold it at most.
constexpr int Widths[ImportColumns] = {4, 12, 14, 24, 14, 2, 10, 12, 22};
const ImportFields Heading{"No.", "First", "Last", "Address", "City", "St", "Zip", "Phone", "E-mail"};
}  // namespace

ImportPreview::ImportPreview(host::Host& host) : Form(host, "ImportPreview") {
    SetCaption("Import Text File into Interest File");
    Move(0, 0, 960 * px, 600 * px);
    lblFile.Move(10 * px, 8 * px, 930 * px, 36 * px);
    lblPicked.Move(10 * px, 46 * px, 930 * px, 36 * px);
    lblPicked.SetForeColor(vbRed);
    lblPicked.SetFontBold(true);
    lstRows.Move(10 * px, 86 * px, 930 * px, 290 * px);
    lstRows.FixedPitch = true;
    lstRows.SetFont("Courier New", 9);
    lblWarnings.Move(10 * px, 384 * px, 930 * px, 18 * px);
    lblWarnings.SetFontBold(true);
    lstWarnings.Move(10 * px, 404 * px, 930 * px, 130 * px);
    btnImport.Move(620 * px, 544 * px, 150 * px, 30 * px);
    btnCancel.Move(790 * px, 544 * px, 150 * px, 30 * px);
    btnImport.Click = [this] { btnImport_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

std::string ImportPreview::Row(const ImportFields& f) {
    std::string row;
    for (int i = 0; i < ImportColumns; ++i) {
        if (i) row += ' ';
        // The column as it will land: line ends of a quoted field would break the row.
        std::string t = f[static_cast<std::size_t>(i)];
        for (char& c : t)
            if (c == '\r' || c == '\n' || c == '\t') c = ' ';
        row += Fixed(t, static_cast<std::size_t>(Widths[i]));
    }
    return RTrim(row);
}

bool ImportPreview::Ask(const ImportFile& file, const std::vector<ImportWarning>& warnings, const std::string& picked,
                        long room) {
    accepted_ = false;
    const long count = std::min<long>(room, static_cast<long>(file.people.size()));
    lblFile.SetCaption("Vestrel will read " + file.path + " (" + KindName(file.kind) + ")" + "\r\n" +
                       CStr(count) + (count == 1 ? " person" : " people") + " will be added. The first " +
                       CStr(static_cast<long>(std::min<std::size_t>(RowsShown, file.people.size()))) +
                       " as they will be read:");
    const bool other = picked != file.path;
    lblPicked.SetVisible(other);
    lblPicked.SetCaption(other ? "This is not the file you picked (" + picked +
                                     "). Vestrel reads only the file beside the crusade under the crusade's name."
                               : "");
    lstRows.Clear();
    lstRows.AddItem(Row(Heading));
    for (std::size_t i = 0; i < file.people.size() && i < RowsShown; ++i) lstRows.AddItem(Row(file.people[i].fields));
    lblWarnings.SetCaption(warnings.empty() ? "No warnings."
                                            : "Warnings (" + CStr(static_cast<long>(warnings.size())) + "):");
    lstWarnings.Clear();
    for (const ImportWarning& w : warnings) lstWarnings.AddItem(w.text);
    btnImport.SetCaption(count == 1 ? "Import 1 person" : "Import " + CStr(count) + " people");
    Show(true);
    return accepted_;
}

void ImportPreview::btnImport_Click() {
    accepted_ = true;
    Unload();
}

void ImportPreview::btnCancel_Click() {
    accepted_ = false;
    Unload();
}

}  // namespace exchange
