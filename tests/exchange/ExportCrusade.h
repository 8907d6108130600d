#pragma once
// A small crusade for the export tests: accents, an apostrophe, a note with a
// comma, a zip with a leading zero, one person off the mail list, one without
// an e-mail address, one deleted, and two members. Its host answers the save
// dialog from a script of its own.
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "edit/EditForm.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/ScriptedHost.h"
#include "support/TestCrusade.h"

struct SaveHost : ScriptedHost {
    struct Answer {
        std::string path;        // empty: Cancel
        int filterIndex = 1;
    };
    std::deque<Answer> answers;
    std::vector<host::FileDialog> asked;
    bool ShowSave(host::FileDialog& d) override {
        asked.push_back(d);
        if (answers.empty()) {
            ADD_FAILURE() << "Unexpected save dialog \"" << d.DialogTitle << "\"";
            return false;
        }
        Answer a = answers.front();
        answers.pop_front();
        if (a.path.empty()) return false;
        d.FileName = a.path;
        d.FilterIndex = a.filterIndex;
        return true;
    }
};

inline std::string W(const std::string& s, std::size_t n) { return vb::Fixed(s, n); }

struct ExportCrusade {
    TempFolder folder;
    SaveHost host;
    std::string appPath = folder.path() + "/Vestrel";
    Program p{host, appPath};

    ExportCrusade() {
        std::filesystem::create_directories(appPath + "/data");
        p.DataFile = appPath + "/data/Fall.dta";
        p.DataFolder = appPath + "/data";
        MasterRecord jose = MakePerson("0001", "Jos\xE9", "Garc\xED" "a");
        jose.Zip = "02134", jose.Email = "jose@example.org", jose.Notes = "Wants visit, evenings";
        jose.IntLevel = "G", jose.BaptDate = "06/01/26", jose.WorkerCode = "03", jose.MapCode = "K7";
        MasterRecord mary = MakePerson("0002", "Mary", "O'Neil");
        mary.MailList = 0, mary.Address = "40 Elm Ave", mary.Phone = "555-0199";
        MasterRecord anna = MakePerson("0003", "Anna", "Smyth");
        anna.Email = "anna@example.org", anna.Advertising = ".R..P..", anna.City = "Dover", anna.State = "DE";
        MasterRecord gone = MakePerson("0004", "Old", "Gone");
        gone.WorkerCode = "##", gone.Email = "gone@example.org";
        std::ofstream out(p.DataFile, std::ios::binary | std::ios::trunc);
        for (const MasterRecord& r : {jose, mary, anna, gone}) {
            RecordBytes b = EncodeRecord(r);
            out.write(b.data(), b.size());
        }
        out.close();
        p.Loaded = true;
        LoadInfo(p);
        OpenRecordFile(p);
        (void)FullLoad(p);
        p.CrusadeName = "Fall";
        // Anna Smith is somebody else than Anna Smyth; Mary is a member too.
        p.MemberList = {"", "0101Smith          Anna           ", "0102O'Neil         Mary           "};
        p.MemberCount = 2;
    }
    ~ExportCrusade() { p.File1.Close(); }

    // The edit screen with the first person on it, as after opening the crusade.
    EditForm& Edit() {
        EditForm& e = p.Edit();
        e.ShowRecord();
        return e;
    }

    std::string Read(const std::string& path) const {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
};
