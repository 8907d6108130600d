#pragma once
// The run as the reports see it: the report screen, and the few things the
// report screen asks of the edit screen, which sits a floor above and is
// reached through the run that owns both.
#include <string>
#include <vector>

#include "lists/ListRun.h"

class PrintReports;
class BlankFrm;

struct ReportRun : ListRun {
    using ListRun::ListRun;

    virtual PrintReports& Reports() = 0;
    virtual bool ReportsLoaded() const = 0;
    // The viewer of the statistics reports.
    virtual BlankFrm& Blank() = 0;

    virtual bool EditLoaded() const = 0;
    // The edit screen's "Show All".
    virtual void ShowAllOnEdit() = 0;
    // Reads the entry at CurrentIndex and shows it on the edit screen, as the
    // one it was opened on.
    virtual void ShowCurrentOnEdit() = 0;
    // Editing one person from the report's preview begins and ends here.
    virtual void EnterPreviewEdit() = 0;
    virtual void LeavePreviewEdit() = 0;
    virtual void ShowEdit() = 0;
    // The mail-list selection, opened at household `group` of the clean-up list; the
    // entries of the household shown last, each begun with "$" for a label or "-".
    virtual std::vector<std::string> SelectMailList(int group) = 0;
};
