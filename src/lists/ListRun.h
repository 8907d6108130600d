#pragma once
// The run as the list builders see it. The two dialogs they open are owned by
// the run one floor up, which hands them down through this.
#include "store/State.h"

class SelDecFm;
class frmFilters;

struct ListRun : ProgramState {
    using ProgramState::ProgramState;

    virtual SelDecFm& SelDec() = 0;
    virtual frmFilters& Filters() = 0;
};
