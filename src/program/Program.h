#pragma once
// The run: the program-wide state with the forms that show it. Forms hold a
// reference to it; it sits above every subsystem, so store/ never sees a form.
#include <functional>
#include <memory>

#include "reports/ReportRun.h"

class EditForm;
class frmSplash;
class AttendF;
class AttendFieldUpdate;
class AppointmentFm;
class PrintReports;
class SelDecFm;
class frmFilters;
class BlankFrm;
class frmTab;
class EditZip;
class ZipCnt;
class Members;

struct Program : ReportRun {
    Program(host::Host& host, std::string appPath);
    ~Program() override;

    // The forms. Touching a form loads it, as the runtime does.
    EditForm& Edit();
    frmSplash& Splash();
    bool EditLoaded() const override;
    // Builds the edit screen's window once the first window is on the screen,
    // while the operator reads it, so that opening a crusade only fills it.
    void PrepareEdit();
    AttendF& Attend();
    bool AttendLoaded() const;
    AttendFieldUpdate& AttendUpdate();
    AppointmentFm& Appointment();
    PrintReports& Reports() override;
    bool ReportsLoaded() const override;
    BlankFrm& Blank() override;
    SelDecFm& SelDec() override;
    frmFilters& Filters() override;
    frmTab& Prefs();
    // The side tables: zip codes and teams, the team counts, the member file.
    EditZip& Zips();
    ZipCnt& Workers();
    Members& MemberEditor();

    // What the report screen asks of the edit screen.
    void ShowAllOnEdit() override;
    void ShowCurrentOnEdit() override;
    void EnterPreviewEdit() override;
    void LeavePreviewEdit() override;
    void ShowEdit() override;
    std::vector<std::string> SelectMailList(int group) override;

    // Runs once when the data folder has just been made (the desktop places a sample crusade there).
    std::function<void(Program&)> OnDataFolderCreated;

private:
    std::unique_ptr<EditForm> editForm_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<AttendF> attend_;
    std::unique_ptr<AttendFieldUpdate> attendUpdate_;
    std::unique_ptr<AppointmentFm> appointment_;
    std::unique_ptr<PrintReports> reports_;
    std::unique_ptr<SelDecFm> selDec_;
    std::unique_ptr<frmFilters> filters_;
    std::unique_ptr<BlankFrm> blank_;
    std::unique_ptr<frmTab> prefs_;
    std::unique_ptr<EditZip> zips_;
    std::unique_ptr<ZipCnt> workers_;
    std::unique_ptr<Members> members_;
};
