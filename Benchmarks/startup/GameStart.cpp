// The game up to its first picture: the real program on the real data, which is told to quit when the first picture of
// the first logo has been shown.
#include "Engine/platform/sdl/SdlPlatform.h"
#include "Game/Entry.h"

namespace {

class cFirstPicture : public Engine::Platform::cSdlPlatform {
public:
    Bool claimInstance(const String&) override { return true; }
    String getExecutablePath() override { return BRINDLE_SOURCE_DIR "/brindle"; }

    Bool takeMessage(Engine::Platform::sMessage& message) override {
        if (cSdlPlatform::takeMessage(message))
            return true;
        // A frame shows the picture of the one before it.
        if (++m_frames > 2)
            message = {Engine::Platform::eMessage::quit, 0};
        return m_frames > 2;
    }

private:
    UInt m_frames = 0;  ///< about to run
};

}  // namespace

int main() {
    cFirstPicture platform;
    return runGame(platform);
}
