#include "Game/GameLogic/Upgrade.h"

#include "Engine/core/Arch.h"
#include "Engine/core/Keys.h"
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

void cUpgrade::serialize(iArch& arch) {
    arch << number;
    serializeNumber(arch, time);
    arch << men << capacity;
    price.serialize(arch);
}
