#include "store/Program.h"

#include "edit/EditForm.h"
#include "startup/frmSplash.h"
#include "store/Records.h"

Program::Program(host::Host& h, std::string appPath) : host(h), AppPath(std::move(appPath)) {
    DefaultLists(*this);
    AgeGroups[0] = "NIF";
    AgeGroups[6] = "60-69";
}

Program::~Program() = default;

std::string Program::CrusadeFile(const std::string& ext) const {
    std::string base = DataFile.size() >= 3 ? DataFile.substr(0, DataFile.size() - 3) : std::string();
    return base + ext;
}

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

void Program::End() {
    File1.Close();
    throw host::EndProgram{};
}
