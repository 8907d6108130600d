#pragma once
// A crusade in a fresh temporary program folder, driven through the scripted host.
#include <filesystem>
#include <string>
#include <vector>

#include "edit/EditForm.h"
#include "store/MasterRecord.h"
#include "program/Program.h"
#include "support/ScriptedHost.h"

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::string& path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }
private:
    std::string path_;
};

// A record with the usual fields filled, as a card typed in full.
MasterRecord MakePerson(const std::string& rnum, const std::string& first, const std::string& last,
                        const std::string& attendance = "1---------------------------------------");

class TestCrusade {
public:
    // Program folder with data/ under it; the crusade is data/<name>.dta.
    explicit TestCrusade(const std::string& name = "Spring");
    ~TestCrusade();

    void WriteRecords(const std::vector<MasterRecord>& records);
    MasterRecord ReadRecord(long n) const;
    long RecordsOnDisk() const;
    std::string ReadFile(const std::string& path) const;
    void WriteFile(const std::string& path, const std::string& bytes) const;
    // Opens the crusade's record file and runs the load pass, as the splash does.
    void Open();
    // The people written, loaded as crusade "Fall" with sound on, and the edit
    // screen up on the first of them; no sound counted yet.
    EditForm& ShowOnEditScreen(const std::vector<MasterRecord>& people);

    TempFolder folder;
    ScriptedHost host;
    std::string appPath;
    std::string dataFile;
    Program p;
};
