#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

namespace Engine {
class cProgressFloat;
}

/// The loading screen: fetches what a resource log lists, some entries a frame, then goes on and ends itself.
///
/// Without the log it goes on at once. Every entry is left in the cache for the screens that come.
/// UI file "Ui/Load.xml": the keys of cBack and the child tags "Progress" (cProgressFloat), and the pieces of music
/// (see Music).
class cLogLoad : public Engine::cBack, public Engine::cSingleton<cLogLoad> {
public:
    using fContinue = void (*)();
    enum eMusic : UInt { sameMusic = 0, mainMenuMusic = 1, gameMusic = 2 };

    /// @param _path              the resource log
    /// @param _continue_func     what comes next; a log that does not exist has it called right here
    /// @param entries_per_frame  above 0
    /// @param music_mode         the music that is played from now on, in a loop
    cLogLoad(const String& _path, fContinue _continue_func, UInt entries_per_frame, eMusic music_mode);

    void loadXML(const Engine::iXML* xml) override;
    void process() override;

private:
    void finish();

    Engine::cProgressFloat* m_progress;  ///< a child of this view
    Engine::cResourceRef m_log;
    UInt m_pos = 0;    ///< entries loaded
    UInt m_count = 0;  ///< entries in the log
    fContinue m_continue_func;
    UInt m_entries_per_frame;
    eMusic m_music_mode;
};
