#pragma once
// The file part of the import of a comma-separated file: reading it as Input #
// does, looking at what it would add before anything is written, and adding
// the people at the end of the record file. The questions, the preview and the
// screen are the edit screen's (mnuImportText_Click).
#include <array>
#include <string>
#include <vector>

#include "exchange/CsvText.h"
#include "store/MasterRecord.h"

struct ProgramState;

namespace exchange {

inline constexpr int ImportColumns = 9;
// A crusade holds at most this many records: list entries keep the record number in 4 characters.
inline constexpr long MaxRecords = 9999;
using ImportFields = std::array<std::string, ImportColumns>;

struct ImportPerson {
    ImportFields fields;   // RNum, FName, LName, Address, City, State, Zip, Phone, Email
    long line = 0;         // the line the person starts on, from 1
    bool shortRow = false; // a line ended before the ninth field: the rest came from the next line
    bool longRow = false;  // more than nine fields: the rest starts the next person
};

struct ImportFile {
    std::string path;
    TextKind kind = TextKind::Ansi;
    long nulsDropped = 0;
    std::vector<ImportPerson> people;   // whole people only
    long partialLine = 0;               // where a person the file ends in the middle of starts; 0 when none
    int partialFields = 0;
};

// Reads the whole file with Input #, nine fields a person. Error 53 when it is missing.
ImportFile ReadImportFile(const std::string& path);
// The record an imported person becomes: the nine columns cut to their widths,
// every other field at its fixed value.
MasterRecord ImportedRecord(const ImportFields& f);

struct ImportWarning {
    long line = 0;
    std::string text;
};
// What the operator should know before the people are added: rows that are short
// or long, numbers already in the file or twice in the import, names already in
// the file at the same address, a file ending in the middle of a person, and
// people past the crusade's limit. Reads the record file.
std::vector<ImportWarning> CheckImport(ProgramState& p, const ImportFile& file);
// How many more people the crusade can take.
long ImportRoom(const ProgramState& p);

// Appends the people (as many as there is room for) to the record file and adds
// an "alpha" entry for each; the list is sorted and the zips recounted. Returns
// how many were added. A write that fails leaves the file at its old length.
long AppendImport(ProgramState& p, const ImportFile& file);

}  // namespace exchange
