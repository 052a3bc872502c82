#include "Game/GameLogic/roads/RoadPrice.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/LevelObject.h"

using namespace Engine;

cRoadPrice::cRoadPrice(cView* parent) : cPriceList(parent) {
    ENGINE_MARK;
    iXML* xml = cResourceManager::getInstance()->getXML(cLevelObject::getDefinitionFile(objectWayPoint));
    const cResourceRef holder = cResourceRef::adopt(xml);
    loadChild(*this, xml, "RoadPrice");
    hide();
}

void cRoadPrice::setPrice(const sResourceCargo& price, const sResourceCargo& stock) {
    const UInt count = std::min<UInt>(getCount(), resource_count);
    for (UInt i = 0; i < count; ++i) {
        setValue(i, price.amounts[i]);
        setCompare(i, stock.amounts[i]);
    }
    updateView();
}

void cRoadPrice::moveTo(const Vector2& pointer) {
    setSmartPosition(pointer);
    updateView();
}
