#include "program/Program.h"

#include "edit/EditForm.h"
#include "lists/SelDecFm.h"
#include "lists/frmFilters.h"
#include "startup/frmSplash.h"

Program::Program(host::Host& h, std::string appPath) : ProgramState(h, std::move(appPath)) {}

Program::~Program() = default;

EditForm& Program::Edit() {
    if (!editForm_) editForm_ = std::make_unique<EditForm>(*this);
    editForm_->Load();
    return *editForm_;
}

bool Program::EditLoaded() const { return editForm_ && editForm_->Loaded(); }

frmSplash& Program::Splash() {
    if (!splash_) splash_ = std::make_unique<frmSplash>(*this);
    splash_->Load();
    return *splash_;
}

void Program::DropSplash() {
    if (splash_ && splash_->Loaded()) splash_->Unload();
}

SelDecFm& Program::SelDec() {
    if (!selDec_) selDec_ = std::make_unique<SelDecFm>(*this);
    return *selDec_;
}

frmFilters& Program::Filters() {
    if (!filters_) filters_ = std::make_unique<frmFilters>(*this);
    return *filters_;
}
