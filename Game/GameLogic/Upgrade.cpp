#include "Game/GameLogic/Upgrade.h"

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/iXML.h"
#include "Game/GameLogic/SavedValue.h"

using namespace Engine;

void cUpgrade::loadXML(const iXML* xml) {
    readKey(*xml, u"UpgradeNumber", number);
    readKey(*xml, u"UpgradeTime", time);
    readKey(*xml, u"MenAmount", men);
    readKey(*xml, u"Capacity", capacity);
    readKey(*xml, u"texture_mask", texture_mask);
    readKey(*xml, u"mask_offset", mask_offset);
    price.loadXML(xml);
}

sResourceCargo cUpgrade::loadFirstPrice(const String& definition_file) {
    ENGINE_MARK;
    iXML* document = cResourceManager::getInstance()->getXML(definition_file);
    const cResourceRef holder = cResourceRef::adopt(document);
    sResourceCargo res;
    iXML* table = nullptr;
    iXML* row = nullptr;
    if (document->get("Upgrades", table) && table->getTagCount() > 0) {
        table->get(0u, row);
        res.loadXML(row);
    }
    return res;
}

void cUpgrade::serialize(iArch& arch) {
    arch << number;
    serializeNumber(arch, time);
    arch << men << capacity;
    price.serialize(arch);
}
