#pragma once

#include "Engine/Ui/TextLine.h"

namespace Engine {

/// A number whose thousands are told apart by a little room between them.
class cPriceText : public cTextLine {
public:
    using cTextLine::cTextLine;

    /// The keys of cTextLine, then "DegreeOffset".
    void loadXML(const iXML* xml) override;
    void makeLetters() override;

private:
    Float m_degree_offset = 4.0f;  ///< logical units
};

}  // namespace Engine
