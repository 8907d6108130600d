// The way from the edit screen to the preview and back, and the interest cards.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "program/Program.h"
#include "reports/PrintReports.h"
#include "reports/Reports.h"
#include "store/SortIndex.h"

using namespace forms;

void EditForm::WirePreview() {
    for (Control* c : std::initializer_list<Control*>{&btnViewFile, &mnuPreMasterLists, &mnuPreBap, &mnuPreDec,
                                                      &mnuPreInt, &mnuPreMailList, &mnuPreAddress, &mnuICard}) {
        notBuilt_.erase(c);
        c->SetEnabled(true);
    }
    btnViewFile.Click = [this] { btnViewFile_Click(); };
    mnuPreAlpha.Click = [this] { mnuPreAlpha_Click(); };
    mnuPreviewFile.Click = [this] { mnuPreviewFile_Click(); };
    mnuPreZipMaster.Click = [this] { mnuPreZipMaster_Click(); };
    mnuPreBap.Click = [this] { mnuPreBap_Click(); };
    mnuPreInt.Click = [this] { mnuPreInt_Click(); };
    mnuPreAddress.Click = [this] { mnuPreAddress_Click(); };
    mnuPreMailList.Click = [this] { mnuPreMailList_Click(); };
    mnuPreDec.Click = [this] { mnuPreDec_Click(); };
    mnuICard.Click = [this] { mnuICard_Click(); };
}

namespace {
// A card being typed is saved before the preview may open; the operator tries again.
bool NewCardSaved(EditForm& e, Program& p) {
    if (!p.AddMode) return e.SaveChanges();
    p.host.MsgBox("This record must be saved before exiting this screen." + p.CrLf + "It is being saved now.  " +
                  p.CrLf + "Click OK and try again.");
    e.btnSaveExit_Click();
    return false;
}
}  // namespace

void EditForm::OpenPreview() {
    const bool wasLoaded = p.ReportsLoaded();
    PrintReports& preview = p.Reports();
    if (wasLoaded) preview.PreviewReport();
    preview.Show();
}

void EditForm::mnuPreAlpha_Click() {
    if (!NewCardSaved(*this, p)) return;
    if (p.SortName != "alphafilter") RebuildAlpha(p);
    OpenPreview();
}

void EditForm::mnuPreviewFile_Click() {
    if (!NewCardSaved(*this, p)) return;
    if (p.RecordCount <= 1) {
        p.host.MsgBox("There is only one record in this file.  You must add a name first before using this feature.");
        return;
    }
    if (p.SortName == "alpha" || p.SortName == "alphafilter") lists::BuildList(p, "attend");
    OpenPreview();
}

void EditForm::btnViewFile_Click() {
    if (ReturnToPreviewMsg.Visible()) {
        // Back from editing one person of the preview's list.
        if (!SaveChanges()) return;
        LeavePreviewEdit();
        p.Reports().ReturnFromEdit();
        return;
    }
    if (p.IndexCount == 0) {
        p.host.MsgBox("There are insufficient records in this file or filter." + p.CrLf +
                      "You must add one more names to this filter or file before using this feature.");
        return;
    }
    mnuPreviewFile_Click();
}

namespace {
void PreviewList(EditForm& e, Program& p, const std::string& kind) {
    if (!NewCardSaved(e, p)) return;
    if (lists::BuildList(p, kind)) e.OpenPreview();
}
}  // namespace

void EditForm::mnuPreZipMaster_Click() { PreviewList(*this, p, "zip"); }
void EditForm::mnuPreBap_Click() { PreviewList(*this, p, "baptism"); }
void EditForm::mnuPreInt_Click() { PreviewList(*this, p, "interest"); }
void EditForm::mnuPreAddress_Click() { PreviewList(*this, p, "DupAddress"); }
void EditForm::mnuPreMailList_Click() { PreviewList(*this, p, "mail"); }
void EditForm::mnuPreDec_Click() { PreviewList(*this, p, "decisions"); }

void EditForm::mnuICard_Click() {
    if (!SaveChanges()) return;
    InterestCard2x4(p);
    FetchCurrentRecord(p);
    ShowRecord();
    SetupScreen("");
    OpenRNum = RNum.Text();
}

void EditForm::EnterPreviewEdit() {
    ReturnToPreviewMsg.SetVisible(true);
    SetBarButtons(false);
    SetTopMenus(false);
    Enable(btnViewFile, true);
    for (int i = 0; i <= 3; ++i) ChgRec[i].SetVisible(false);
    for (Control* c : std::initializer_list<Control*>{&SearchBox, &SearchBoxLabel, &ShowAll, &lblShowButtonLabels})
        c->SetVisible(false);
}

void EditForm::LeavePreviewEdit() {
    if (!ReturnToPreviewMsg.Visible()) return;
    ReturnToPreviewMsg.SetVisible(false);
    SetBarButtons(true);
    SetTopMenus(true);
    for (int i = 0; i <= 3; ++i) ChgRec[i].SetVisible(true);
    for (Control* c : std::initializer_list<Control*>{&SearchBox, &SearchBoxLabel}) c->SetVisible(true);
    lblShowButtonLabels.SetVisible(p.ShowButtonLabels);
    ShowAll.SetVisible(p.SortName != "alpha");
}
