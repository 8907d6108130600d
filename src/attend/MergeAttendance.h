#pragma once
// The night's attendance and new names of a second computer's copy of the
// crusade, brought into the open one. The questions are the edit screen's;
// this part reads the other computer's files and writes this crusade's.
#include <string>
#include <vector>

#include "store/MasterRecord.h"

struct ProgramState;

namespace attend {

struct RemoteCrusade {
    std::string path;
    int meeting = 0;                        // the third line of its information file
    std::vector<MasterRecord> people;       // its records not deleted, in file order
    std::vector<std::string> memberLines;   // its member file, line by line
};

// Reads the other computer's crusade at dtaPath with its .inf and .mem.
// Empty on success, otherwise what is wrong with it, for the operator.
std::string ReadRemoteCrusade(const std::string& dtaPath, RemoteCrusade& out);

struct MergeCount {
    int marked = 0;   // found here and present at the remote meeting: their mark is taken
    int added = 0;    // numbers not in this crusade: appended as new names
    // Numbers found here under another name: "0123  Ann Smith / Anne Smyth".
    std::vector<std::string> namesDiffer;
};

// What MergeAttendance would do, without writing anything.
MergeCount PlanAttendanceMerge(ProgramState& p, const RemoteCrusade& remote);
// Takes the marks of the remote meeting (or, with wholeRecord, the remote
// records of those present), appends the new names and the new member lines,
// and sets MeetingNumber to the remote meeting. The caller saves the
// information file and rebuilds the list.
MergeCount MergeAttendance(ProgramState& p, const RemoteCrusade& remote, bool wholeRecord);

}  // namespace attend
