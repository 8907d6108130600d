#include <gtest/gtest.h>

#include "program/Program.h"
#include "store/Sounds.h"
#include "support/ScriptedHost.h"

TEST(Sounds, PlayOnlyWhileSoundIsOnAndChimesNeverSound) {
    ScriptedHost host;
    Program p(host, "/prog");
    PlaySound(p, "clunk");
    EXPECT_TRUE(host.sounds.empty());   // sound off: no wave file is touched
    p.SoundOn = true;
    PlaySound(p, "clunk");
    PlaySound(p, "welcome");
    PlaySound(p, "nosuchname");         // plays the file last named
    PlaySound(p, "chimes");             // a full path behind the program folder: no such file
    EXPECT_EQ((std::vector<std::string>{"/prog/S02.wav", "/prog/S05.wav", "/prog/S05.wav",
                                        "/progc:/windows/media/chimes.wav"}),
              host.sounds);
}
