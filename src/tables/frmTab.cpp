#include "tables/frmTab.h"

#include "platform/host/Host.h"
#include "platform/host/PrintSurface.h"
#include "platform/vb/Strings.h"
#include "reports/ReportParts.h"
#include "reports/SelPrinter.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = TwipsPerPixel;
const char* const TabCaptions[] = {"Teams", "General", "Decisions", "Church", "Sermons"};
}  // namespace

frmTab::frmTab(ProgramState& prog) : Form(prog.host, "frmTab"), p(prog) {
    SetCaption("Vestrel Preferences");
    Layout();

    auto changed = [this] { changed_ = true; };
    auto changedAt = [this](int) { changed_ = true; };
    for (Control* c : Controls())
        if (c->kind() == Kind::TextBox && c->Index() < 0) c->Change = changed;
    for (CheckBox* c : {&boxShowButtonLabels, &ckSoundOff, &ckCanada}) c->Click = changed;
    Team.Change = TmPhone.Change = prefDec.Change = prefDecCode.Change = prefReligion.Change = prefSerm.Change =
        ResDirMM.Click = changedAt;

    tabPref.Click = [this] { tabPref_Click(); };
    prefDec.Click = [this](int i) { prefDec_Click(i); };
    prefDecCode.Click = [this](int i) { prefDecCode_Click(i); };
    prefSerm.KeyPress = [this](int i, int& k) { prefSerm_KeyPress(i, k); };
    Team.DblClick = [this](int i) { Team_DblClick(i); };
    HelpButton.Click = [this] { HelpButton_Click(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
    btnPrintTeams.Click = [this] { btnPrintTeams_Click(); };
}

void frmTab::Layout() {
    Move(0, 0, 700 * px, 600 * px);
    std::vector<std::string> tabs(std::begin(TabCaptions), std::end(TabCaptions));
    tabPref.SetTabs(tabs);
    Place(tabPref, 8, 8, 684, 502);
    for (int f = 0; f < 6; ++f) {
        fraTab[f].SetCaption(f == FrameTeams1 ? "Teams 1 to 20" : f == FrameTeams2 ? "Teams 21 to 40" : "");
        if (f <= FrameTeams2) Place(fraTab[f], 16 + f * 336, 40, 330, 462);
        else Place(fraTab[f], 16, 40, 668, 462);
    }

    // Teams: two frames of twenty, the number, the name and the phone.
    for (int f = 0; f < 2; ++f) {
        Place(lblTeam[2 * f], 42, 20, 150, 16, &fraTab[f]);
        lblTeam[2 * f].SetCaption("Name");
        Place(lblTeam[2 * f + 1], 207, 20, 110, 16, &fraTab[f]);
        lblTeam[2 * f + 1].SetCaption("Phone");
        lblTeam[2 * f].SetVisible(true);
        lblTeam[2 * f + 1].SetVisible(true);
    }
    for (int i = 1; i <= 40; ++i) {
        Control& frame = fraTab[i <= 20 ? FrameTeams1 : FrameTeams2];
        const int y = 40 + ((i - 1) % 20) * 20;
        Label& n = lblTeamNumber.Load(i);
        Place(n, 6, y + 2, 30, 17, &frame);
        n.SetCaption(CStr(i));
        n.Alignment = 1;
        n.SetVisible(true);
        Place(Team.Load(i), 40, y, 160, 20, &frame);
        Place(TmPhone.Load(i), 205, y, 115, 20, &frame);
        Team[i].SetVisible(true);
        TmPhone[i].SetVisible(true);
    }

    // General.
    Control& g = fraTab[FrameGeneral];
    Place(lblCrName, 12, 22, 100, 18, &g);
    Place(CrNameM_Box, 115, 20, 250, 21, &g);
    Place(lblCrDate, 12, 50, 100, 18, &g);
    Place(CrDateM_Box, 115, 48, 120, 21, &g);
    Place(lblLastMeeting, 12, 78, 100, 18, &g);
    Place(LastMeetingBox, 115, 76, 50, 21, &g);
    Place(lblPrintCutOff, 12, 106, 100, 18, &g);
    Place(PrintCutOffBox, 115, 104, 50, 21, &g);
    Place(fraSabAM, 12, 138, 260, 54, &g);
    TextBox* sab[] = {&bxSabAM1, &bxSabAM2, &bxSabAM3, &bxSabAM4};
    for (int i = 0; i < 4; ++i) Place(*sab[i], 12 + i * 60, 22, 48, 21, &fraSabAM);
    Place(lblResNum, 12, 212, 100, 18, &g);
    Place(ResNumMM, 115, 210, 70, 21, &g);
    Place(fraResDir, 12, 242, 260, 52, &g);
    for (int i = 0; i < 2; ++i) {
        Place(ResDirMM[i], 12 + i * 100, 22, 90, 20, &fraResDir);
        ResDirMM[i].SetCaption(i == 0 ? "Up" : "Down");
        ResDirMM[i].SetVisible(true);
    }
    Place(boxShowButtonLabels, 390, 20, 260, 20, &g);
    Place(ckSoundOff, 390, 48, 260, 20, &g);
    Place(ckCanada, 390, 76, 260, 20, &g);
    Place(lblLabels, 390, 138, 260, 50, &g);
    Place(lblLabelTop, 390, 196, 45, 18, &g);
    Place(bxLabelTop, 438, 194, 60, 21, &g);
    Place(lblLabelRight, 520, 196, 45, 18, &g);
    Place(bxLabelRight, 568, 194, 60, 21, &g);

    // Decisions: nine titles with their letters; 1, 2 and 9 are fixed.
    Control& d = fraTab[FrameDecisions];
    Place(lblDecisions, 12, 18, 300, 18, &d);
    for (int i = 1; i <= 9; ++i) {
        const int y = 44 + (i - 1) * 28;
        Place(prefDec.Load(i), 12, y, 260, 21, &d);
        Place(prefDecCode.Load(i), 280, y, 30, 21, &d);
        prefDec[i].SetVisible(true);
        prefDecCode[i].SetVisible(true);
        prefDecCode[i].MaxLength = 1;
        if (i == 1 || i == 2 || i == 9) {
            // Statistics count these by their number and letter.
            prefDec[i].Locked = prefDecCode[i].Locked = true;
            prefDec[i].SetTabStop(false);
            prefDecCode[i].SetTabStop(false);
        }
    }
    Place(PrefWarning, 340, 44, 300, 110, &d);
    PrefWarning.MultiLine = true;
    PrefWarning.Locked = true;
    PrefWarning.SetTabStop(false);

    Control& ch = fraTab[FrameChurch];
    Place(lblChurch, 12, 18, 300, 18, &ch);
    for (int i = 1; i <= 14; ++i) {
        Place(prefReligion.Load(i), 12 + ((i - 1) / 7) * 320, 44 + ((i - 1) % 7) * 28, 280, 21, &ch);
        prefReligion[i].SetVisible(true);
    }

    Control& s = fraTab[FrameSermons];
    Place(lblSermons, 12, 14, 300, 18, &s);
    for (int i = 1; i <= 40; ++i) {
        const int x = 8 + ((i - 1) / 20) * 330, y = 36 + ((i - 1) % 20) * 21;
        Label& n = lblSermNumber.Load(i);
        Place(n, x, y + 2, 24, 17, &s);
        n.SetCaption(CStr(i));
        n.Alignment = 1;
        n.SetVisible(true);
        Place(prefSerm.Load(i), x + 28, y, 290, 20, &s);
        prefSerm[i].SetVisible(true);
    }

    Place(btnPrintTeams, 16, 522, 120, 30);
    Place(HelpButton, 150, 522, 110, 30);
    HelpButton.SetToolTipText("What the settings of the General tab do");
    Place(btnSave, 460, 522, 110, 30);
    Place(btnCancel, 580, 522, 110, 30);

    // The tab order follows the screen: each frame's boxes top to bottom.
    int order = 0;
    for (int i = 1; i <= 40; ++i) {
        Team[i].SetTabIndex(++order);
        TmPhone[i].SetTabIndex(++order);
    }
    for (Control* c : std::initializer_list<Control*>{&CrNameM_Box, &CrDateM_Box, &LastMeetingBox, &PrintCutOffBox,
                                                      &bxSabAM1, &bxSabAM2, &bxSabAM3, &bxSabAM4, &ResNumMM,
                                                      &ResDirMM[0], &ResDirMM[1], &boxShowButtonLabels,
                                                      &ckSoundOff, &ckCanada, &bxLabelTop, &bxLabelRight})
        c->SetTabIndex(++order);
    for (int i = 1; i <= 9; ++i) {
        prefDec[i].SetTabIndex(++order);
        prefDecCode[i].SetTabIndex(++order);
    }
    for (int i = 1; i <= 14; ++i) prefReligion[i].SetTabIndex(++order);
    for (int i = 1; i <= 40; ++i) prefSerm[i].SetTabIndex(++order);
    for (Control* c : std::initializer_list<Control*>{&btnSave, &btnCancel, &HelpButton, &btnPrintTeams})
        c->SetTabIndex(++order);
}

void frmTab::Form_Load() {
    CopyIn();
    changed_ = false;
    closing_ = false;
    openedMeeting_ = p.MeetingNumber;
    const bool teams = p.ScratchText == "team";
    if (teams) p.ScratchText.clear();
    ShowTab(teams ? TabTeams : TabGeneral);
}

void frmTab::CopyIn() {
    for (int i = 1; i <= 40; ++i) {
        const std::string& t = p.TeamNames[static_cast<std::size_t>(i)];
        const long colon = InStr(t, ":");
        Team[i].SetText(colon > 0 ? vb::Left(t, colon - 1) : t);
        TmPhone[i].SetText(colon > 0 ? Mid(t, colon + 1) : std::string());
    }
    CrNameM_Box.SetText(p.CrusadeName);
    CrDateM_Box.SetText(p.CrusadeDate);
    LastMeetingBox.SetText(CStr(p.MeetingNumber));
    TextBox* sab[] = {&bxSabAM1, &bxSabAM2, &bxSabAM3, &bxSabAM4};
    for (int i = 0; i < 4; ++i) sab[i]->SetText(CStr(p.SabAM[static_cast<std::size_t>(i + 1)]));
    PrintCutOffBox.SetText(CStr(p.PrintCutOff));
    ResNumMM.SetText(CStr(p.LastRNum));
    const std::string dir = UCase(Trim(p.NumberDirection));
    if (dir == "UP") ResDirMM[0].SetValue(true);
    else if (dir == "DOWN") ResDirMM[1].SetValue(true);
    boxShowButtonLabels.SetValue(p.ShowButtonLabels ? vbChecked : vbUnchecked);
    ckSoundOff.SetValue(p.SoundOn ? vbUnchecked : vbChecked);
    ckCanada.SetValue(p.CanadaSorter ? vbChecked : vbUnchecked);
    bxLabelTop.SetText(CStr(p.LabelTop));
    bxLabelRight.SetText(CStr(p.LabelRight));
    for (int i = 1; i <= 9; ++i) {
        prefDec[i].SetText(p.DecisionNames[static_cast<std::size_t>(i)]);
        prefDecCode[i].SetText(p.DecisionCodes[static_cast<std::size_t>(i)]);
    }
    PrefWarning.SetText("Decisions 1, 2 and 9 cannot be changed: the statistics count them by their number "
                        "and letter." + p.CrLf + p.CrLf +
                        "Each decision is marked in the attendance by its letter, so give each a letter of "
                        "its own.");
    for (int i = 1; i <= 14; ++i) prefReligion[i].SetText(p.ReligionList[static_cast<std::size_t>(i)]);
    for (int i = 1; i <= 40; ++i) prefSerm[i].SetText(p.SermonTitles[static_cast<std::size_t>(i)]);
}

void frmTab::ShowTab(int tab, Control* focus) {
    tabPref.SetSelectedTab(tab);
    fraTab[FrameTeams1].SetVisible(tab == TabTeams);
    fraTab[FrameTeams2].SetVisible(tab == TabTeams);
    fraTab[FrameGeneral].SetVisible(tab == TabGeneral);
    fraTab[FrameDecisions].SetVisible(tab == TabDecisions);
    fraTab[FrameChurch].SetVisible(tab == TabChurch);
    fraTab[FrameSermons].SetVisible(tab == TabSermons);
    btnPrintTeams.SetVisible(tab == TabTeams);
    if (focus) {
        focus->SetFocus();
        focus->SetSelStart(0);
        focus->SetSelLength(static_cast<int>(focus->Text().size()));
    }
}

void frmTab::tabPref_Click() { ShowTab(tabPref.SelectedTab()); }

void frmTab::prefDec_Click(int Index) {
    if (Index != 1 && Index != 2 && Index != 9) return;
    p.host.MsgBox("Due to the way Vestrel tracks statistics, You cannot change Decision numbers 1, 2 or 9.");
    HelpButton.SetFocus();
}

void frmTab::prefDecCode_Click(int Index) {
    if (Index != 1 && Index != 2 && Index != 9) return;
    p.host.MsgBox("You cannot change this field.");
    HelpButton.SetFocus();
}

void frmTab::prefSerm_KeyPress(int Index, int& KeyAscii) {
    if (KeyAscii != vbKeyReturn) return;
    KeyAscii = 0;
    if (Index < 40) prefSerm[Index + 1].SetFocus();
}

void frmTab::Team_DblClick(int Index) { p.host.MsgBox("Team #" + Str(static_cast<long>(Index))); }

std::string frmTab::HelpText() const {
    const std::string& nl = p.CrLf;
    return "Last Meeting: Last crusade meeting held.  It will update automatically but if you choose to reset it "
           "you can do so here." + nl + nl +
           "The meeting numbers for your sabbath morning meetings.  This will indicate on the printouts, which "
           "meetings are Sabbath morning.  This is especially helpfull for visitation teams." + nl + nl +
           "Print Cut Off:  Reports will not show the names of those who stop attending before this meeting.  For "
           "example, if the number is 5, those who stopped attending before the 6th meeting will not be printed.  "
           "This prevents printing duplicate labels." + nl + nl +
           "Last Int. Card:  Will Print Interest card labels for new people attending for the first time after "
           "this meeting number" + nl + nl +
           "Reserved Number:  The last registration number given out.  Each new name gets the next number, "
           "counting up or down as the Direction for Reserved Numbers says, so the numbers on the other side of "
           "it stay free for tickets handed out in advance." + nl + nl +
           "Show Decisions on Attendance Record: will put the decision made in place of the night number on the "
           "nightly attendance record.  Ex: 12-4C6S-90-B345K7U901234";
}

void frmTab::HelpButton_Click() { p.host.MsgBox(HelpText()); }

void frmTab::btnCancel_Click() {
    if (changed_ && p.host.MsgBox("Are you sure you want to leave without saving your changes?", host::vbYesNo) ==
                        host::vbNo)
        return;
    Close();
}

void frmTab::Close() {
    closing_ = true;
    Unload();
}

void frmTab::Form_Unload(int& Cancel) {
    // Closed by the window's own button: the same question as Cancel.
    if (closing_ || !changed_) return;
    if (p.host.MsgBox("Are you sure you want to leave without saving your changes?", host::vbYesNo) == host::vbNo)
        Cancel = 1;
}

void frmTab::btnPrintTeams_Click() {
    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;
    host::PrintSurface& out = p.host.Printer();
    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        reports::Pager pager(p.host, out, sel.FromPage);
        out.SetScaleMode(7);
        out.SetFont(host::Fonts::fntArial14);
        out.SetCurrentX(1.0f);
        out.SetCurrentY(1.0f);
        out.Print(p.CrusadeName + " Vistiation Teams");
        out.Line(0.6f, 2.0f, 19.9f, 2.0f);
        out.SetFont(host::Fonts::fntArial10U);
        const float heads[] = {1.0f, 3.0f, 12.0f};
        const char* const titles[] = {"Team #", "Name", "Phone"};
        for (int c = 0; c < 3; ++c) {
            out.SetCurrentX(heads[c]);
            out.SetCurrentY(2.4f);
            out.Print(titles[c], true);
        }
        out.SetFont(host::Fonts::fntTimes12);
        for (int i = 1; i <= 40; ++i) {
            const float y = 3.1f + static_cast<float>(i - 1) * 0.58f;
            const std::string cells[] = {CStr(i), Team[i].Text(), TmPhone[i].Text()};
            for (int c = 0; c < 3; ++c) {
                out.SetCurrentX(heads[c] + (c == 0 ? 0.4f : 0.0f));
                out.SetCurrentY(y);
                out.Print(cells[c], true);
            }
        }
        if (!pager.Finish()) break;
    }
}
