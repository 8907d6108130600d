#pragma once
// What the import will read, shown before anything is written: the first people
// in the nine columns, the warnings, and the file that is read when it is not the
// one the operator picked.
#include <string>
#include <vector>

#include "exchange/Import.h"
#include "platform/forms/Form.h"

namespace host { class Host; }

namespace exchange {

class ImportPreview : public forms::Form {
public:
    static constexpr int RowsShown = 20;

    explicit ImportPreview(host::Host& host);
    // Shows the file modally; true when the operator chose to import.
    bool Ask(const ImportFile& file, const std::vector<ImportWarning>& warnings, const std::string& picked,
             long room);
    // One person as a row of the nine columns (also the heading, from the column names).
    static std::string Row(const ImportFields& f);

    void btnImport_Click();
    void btnCancel_Click();

    forms::Label lblFile{*this, "lblFile"};
    forms::Label lblPicked{*this, "lblPicked"};
    forms::ListBox lstRows{*this, "lstRows"};
    forms::Label lblWarnings{*this, "lblWarnings"};
    forms::ListBox lstWarnings{*this, "lstWarnings"};
    forms::CommandButton btnImport{*this, "btnImport", "Import"};
    forms::CommandButton btnCancel{*this, "btnCancel", "Cancel"};

private:
    bool accepted_ = false;
};

}  // namespace exchange
