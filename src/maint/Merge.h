#pragma once
// The file parts of merging another crusade into the loaded one and of
// comparing the loaded one with a backup. The questions are the edit screen's.
#include <functional>
#include <string>
#include <vector>

#include "store/MasterRecord.h"

struct ProgramState;

namespace maint {

// Records of another crusade's record file; empty (and `why` set) when it is
// not a whole number of records or cannot be read.
std::vector<RecordBytes> ReadOtherRecords(const std::string& path, std::string& why);

struct MergeCount {
    long added = 0;        // records written to the loaded crusade
    long skipped = 0;      // the same number and the same names: already here
    long renumbered = 0;   // the same number for another person: a new number given
    long baptisms = 0;     // added records of level "G"
};

// Adds the live records of `other` to the crusade, each through the duplicate
// test: a number the list does not hold comes in as it is; a number it holds
// comes in under NextRNum unless a record of the file (deleted ones too, and
// the ones this merge added) has the same first and last names to the byte,
// and is then left out. The records are written to a copy of the record file
// that replaces it only when whole; the list gets the "alpha" entries. File
// number 1 is closed: the caller opens it again. vb::RuntimeError on failure,
// with the record file as it was (numbers already drawn stay drawn).
MergeCount MergeRecords(ProgramState& p, const std::vector<RecordBytes>& other);

// Appends the lines of another member file that MemberList does not hold as
// whole lines; the count appended.
int MergeMemberLines(ProgramState& p, const std::string& otherMem);

// The live records of a backup whose number the list does not hold.
std::vector<RecordBytes> MissingRecords(const ProgramState& p, const std::vector<RecordBytes>& backup);

// Appends records to the record file, written aside and renamed as above.
// File number 1 is closed: the caller opens it again.
void AppendRecords(ProgramState& p, const std::vector<RecordBytes>& records);

}  // namespace maint
