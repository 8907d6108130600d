#pragma once
// The run: the program-wide state with the forms that show it. Forms hold a
// reference to it; it sits above every subsystem, so store/ never sees a form.
#include <functional>
#include <memory>

#include "store/State.h"

class EditForm;
class frmSplash;
class SelDecFm;
class frmFilters;

struct Program : ProgramState {
    Program(host::Host& host, std::string appPath);
    ~Program() override;

    // The forms. Touching a form loads it, as the runtime does.
    EditForm& Edit();
    frmSplash& Splash();
    bool EditLoaded() const;
    void DropSplash();
    SelDecFm& SelDec();
    frmFilters& Filters();

    // Runs once when the data folder has just been made (the desktop places a sample crusade there).
    std::function<void(Program&)> OnDataFolderCreated;

    // Households of the mail-list clean-up that need the operator's choice.
    int FamilyCount = 0;

private:
    std::unique_ptr<EditForm> editForm_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<SelDecFm> selDec_;
    std::unique_ptr<frmFilters> filters_;
};
