#include "program/Program.h"

#include "edit/EditForm.h"
#include "reports/PrintReports.h"
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

PrintReports& Program::Reports() {
    if (!reports_) reports_ = std::make_unique<PrintReports>(*this);
    reports_->Load();
    return *reports_;
}

bool Program::ReportsLoaded() const { return reports_ && reports_->Loaded(); }
