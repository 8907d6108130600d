#include "store/State.h"

#include "store/Records.h"

ProgramState::ProgramState(host::Host& h, std::string appPath) : host(h), AppPath(std::move(appPath)) {
    DefaultLists(*this);
    AgeGroups[0] = "NIF";
    AgeGroups[6] = "60-69";
}

ProgramState::~ProgramState() = default;

std::string ProgramState::CrusadeFile(const std::string& ext) const {
    std::string base = DataFile.size() >= 3 ? DataFile.substr(0, DataFile.size() - 3) : std::string();
    return base + ext;
}

void ProgramState::End() {
    File1.Close();
    throw host::EndProgram{};
}
