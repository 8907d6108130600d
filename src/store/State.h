#pragma once
// The program-wide state of a run: the crusade's files, the list in memory and
// the crusade-wide values. Store routines take it; the forms live one floor up,
// in Program. Nothing is global, so a test builds a fresh one.
#include <array>
#include <string>
#include <vector>

#include "platform/host/Host.h"
#include "platform/vb/Files.h"
#include "store/MasterRecord.h"
#include "store/NumberIndex.h"

inline constexpr int VersionMajor = 2;
inline constexpr int VersionMinor = 5;
inline constexpr int VersionRevision = 0;
inline constexpr const char* AppTitle = "Vestrel";

struct ProgramState {
    ProgramState(host::Host& host, std::string appPath);
    virtual ~ProgramState();
    ProgramState(const ProgramState&) = delete;
    ProgramState& operator=(const ProgramState&) = delete;

    host::Host& host;

    // Folders and files. AppPath is the program's folder; data/ under it holds crusades.
    std::string AppPath;
    std::string DataFile;
    std::string DataFolder;
    std::string CurrentFolder;
    const std::string CrLf = "\r\n";
    std::string DataPath() const { return AppPath + "/data"; }
    std::string SettingsPath() const { return AppPath + "/Vestrel.ini"; }
    // A file of the crusade set: DataFile with its last 3 characters replaced.
    std::string CrusadeFile(const std::string& ext) const;

    // The record file, held open as file number 1 while a crusade is loaded.
    vb::RandomFile File1;
    static constexpr int RecLen = MasterRecord::Length;
    MasterRecord MasterRec;
    MasterRecord UndoRec;
    MasterRecord PreviousRec;
    long RecordCount = 0;
    long RecordPos = 0;

    // The current list: SortIndex(0) names its kind, entries are 1-based.
    std::vector<std::string> SortIndex{std::string()};
    int IndexCount = 0;
    int CurrentIndex = 0;
    int SavedIndex = 0;
    std::string SortName;
    std::string PriorSortName;
    // The list's entries by number; built again whenever the list changes under it.
    mutable NumberIndex EntryNumbers;

    // Crusade-wide values (the information file).
    std::string CrusadeName;
    std::string CrusadeDate;
    int MeetingNumber = 1;
    long LastRNum = 9999;
    std::string NumberDirection = "DOWN";
    // Set when the information file gave no sound number or direction: opening
    // the record file then takes them from the numbers in use.
    bool LastRNumUnread = false;
    bool DirectionUnread = false;
    std::string BackupPath;
    int FilterTotalAttend = 1;
    int PrintCutOff = 0;
    bool CanadaSorter = false;
    std::string LastUpdated;
    std::array<std::string, 41> TeamNames;
    std::array<int, 5> SabAM{};
    std::array<std::string, 10> DecisionNames;
    std::array<std::string, 10> DecisionCodes;
    std::array<std::string, 16> ReligionList;
    std::array<std::string, 8> AgeGroups;
    std::array<std::string, 41> SermonTitles;
    std::array<std::string, 7> WeekDays;
    std::array<std::string, 14> HourLabels;
    bool SoundOn = false;
    // The meeting whose heading the prayer file got last in this run.
    int LastPrayerMeeting = 0;
    // Households of the mail-list clean-up that need the operator's choice.
    int FamilyCount = 0;

    // Side tables. Each remembers the file it was read from (or made for), and is
    // written back to that file only, so one crusade's table never lands on another's.
    std::vector<std::string> MemberList{std::string()};
    int MemberCount = 0;
    std::string MembersFrom;
    std::array<std::string, 2001> ZipList;
    int ZipCount = 0;
    std::string ZipsFrom;

    // The settings file.
    bool ShowButtonLabels = true;
    long LabelTop = 0;
    long LabelRight = 0;

    // Scratch words and flags.
    std::string ScratchText;
    std::string ScratchValue;
    std::string CallerForm;
    bool Loaded = false;
    bool IsNewFile = false;
    bool AddMode = false;
    bool ImportMode = false;
    bool PrintingFromPreview = false;
    bool StartUp = false;
    std::string SoundFile;   // the wave file last named
    bool SaveFilterOnExit = false;   // the preview's list stays when it closes
    bool IncludeFLevel = false;      // the preview's "Include 'F'": the interest list takes level F too

    // The end of the process (the End statement): unwinds to main.
    [[noreturn]] void End();
};
