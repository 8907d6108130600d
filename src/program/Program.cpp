#include "program/Program.h"

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "reports/PrintReports.h"
#include "reports/BlankFrm.h"
#include "lists/SelDecFm.h"
#include "lists/frmFilters.h"
#include "startup/frmSplash.h"
#include "attend/AttendF.h"
#include "attend/AttendFieldUpdate.h"
#include "tables/AppointmentFm.h"
#include "tables/FamilyMem.h"
#include "tables/frmTab.h"
#include "tables/EditZip.h"
#include "tables/MembersFm.h"
#include "tables/ZipCnt.h"

Program::Program(host::Host& h, std::string appPath) : ReportRun(h, std::move(appPath)) {}

Program::~Program() = default;

EditForm& Program::Edit() {
    if (!editForm_) editForm_ = std::make_unique<EditForm>(*this);
    editForm_->Load();
    return *editForm_;
}

void Program::PrepareEdit() {
    host.AfterFirstPaint([this] {
        if (!editForm_) editForm_ = std::make_unique<EditForm>(*this);
        host.PrepareForm(*editForm_);
    });
}

bool Program::EditLoaded() const { return editForm_ && editForm_->Loaded(); }

void Program::ShowAllOnEdit() { Edit().ShowAll_Click(); }

void Program::ShowCurrentOnEdit() {
    EditForm& e = Edit();
    FetchCurrentRecord(*this);
    e.ShowRecord();
    e.SetupScreen("");
    e.OpenRNum = e.RNum.Text();
}

void Program::EnterPreviewEdit() { Edit().EnterPreviewEdit(); }
void Program::LeavePreviewEdit() { Edit().LeavePreviewEdit(); }
void Program::ShowEdit() { Edit().Show(); }

frmSplash& Program::Splash() {
    if (!splash_) splash_ = std::make_unique<frmSplash>(*this);
    splash_->Load();
    return *splash_;
}

AttendF& Program::Attend() {
    if (!attend_) attend_ = std::make_unique<AttendF>(*this);
    attend_->Load();
    return *attend_;
}

bool Program::AttendLoaded() const { return attend_ && attend_->Loaded(); }

AttendFieldUpdate& Program::AttendUpdate() {
    if (!attendUpdate_) attendUpdate_ = std::make_unique<AttendFieldUpdate>(*this);
    attendUpdate_->Load();
    return *attendUpdate_;
}

AppointmentFm& Program::Appointment() {
    if (!appointment_) appointment_ = std::make_unique<AppointmentFm>(*this);
    appointment_->Load();
    return *appointment_;
}
PrintReports& Program::Reports() {
    if (!reports_) reports_ = std::make_unique<PrintReports>(*this);
    reports_->Load();
    return *reports_;
}

bool Program::ReportsLoaded() const { return reports_ && reports_->Loaded(); }
BlankFrm& Program::Blank() {
    if (!blank_) blank_ = std::make_unique<BlankFrm>(*this);
    return *blank_;
}

SelDecFm& Program::SelDec() {
    if (!selDec_) selDec_ = std::make_unique<SelDecFm>(*this);
    return *selDec_;
}

frmFilters& Program::Filters() {
    if (!filters_) filters_ = std::make_unique<frmFilters>(*this);
    return *filters_;
}

std::vector<std::string> Program::SelectMailList(int group) {
    FamilyMem form(*this);
    form.ShowAt(group);
    return {form.FamilyList.begin() + 1, form.FamilyList.end()};
}

frmTab& Program::Prefs() {
    if (!prefs_) prefs_ = std::make_unique<frmTab>(*this);
    return *prefs_;
}

EditZip& Program::Zips() {
    if (!zips_) zips_ = std::make_unique<EditZip>(*this);
    return *zips_;
}

ZipCnt& Program::Workers() {
    if (!workers_) workers_ = std::make_unique<ZipCnt>(*this);
    return *workers_;
}

Members& Program::MemberEditor() {
    if (!members_) members_ = std::make_unique<Members>(*this);
    return *members_;
}
