#include "store/Sounds.h"

#include "store/State.h"

void PlaySound(ProgramState& p, const std::string& name) {
    if (!p.SoundOn) return;
    if (name == "clunk") p.SoundFile = "/S02.wav";
    else if (name == "filedone") p.SoundFile = "/S04.wav";
    else if (name == "chimes") p.SoundFile = "c:/windows/media/chimes.wav";   // behind AppPath: never a file
    else if (name == "goodbye") p.SoundFile = "/amen.wav";
    else if (name == "laser") p.SoundFile = "/S01.wav";
    else if (name == "welcome") p.SoundFile = "/S05.wav";
    else if (name == "carbrake") p.SoundFile = "/S03.wav";
    // An unknown name plays the file last named.
    if (p.SoundFile.empty()) return;
    p.host.PlayWave(p.AppPath + p.SoundFile);
}
