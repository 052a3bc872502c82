#include "Game/Ui/LogLoad.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Game/Ui/Music.h"

using namespace Engine;

cLogLoad::cLogLoad(const String& _path, fContinue _continue_func, UInt entries_per_frame, eMusic music_mode)
    : cBack(nullptr),
      m_progress(new cProgressFloat(this)),
      m_continue_func(_continue_func),
      m_entries_per_frame(std::max(entries_per_frame, 1u)),
      m_music_mode(music_mode) {
    ENGINE_MARK;
    loadView(*this, "Ui/Load.xml");
    if (!cFileManager::getInstance()->isExist(_path)) {
        finish();
        return;
    }
    iXML* log = cResourceManager::getInstance()->getXML(_path);
    m_log = cResourceRef::adopt(log);
    m_count = log->getTagCount();
}

void cLogLoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_progress, xml, "Progress");
    m_progress->setProgressCurrentValue(0.0f);
    if (m_music_mode != sameMusic)
        Music::play(m_music_mode == mainMenuMusic ? Music::getMenuPiece(*xml) : Music::getMapPiece(*xml));
}

void cLogLoad::process() {
    ENGINE_MARK;
    cBack::process();
    if (m_pos >= m_count) {
        finish();
        return;
    }
    const UInt end = m_pos + std::min(m_entries_per_frame, m_count - m_pos);
    cResourceManager::getInstance()->logToResources(static_cast<const iXML*>(m_log.get()), m_pos, end);
    m_pos = end;
    const Float done = static_cast<Float>(m_pos) / static_cast<Float>(m_count);
    m_progress->setProgressCurrentValue(done * m_progress->getProgressMaxValue());
}

void cLogLoad::finish() {
    m_continue_func();
    hide();
    discard(this, here());
}
