// The two windows of a road's picture.
#pragma once

#include "plotfigures.h"

namespace kvarnio {

void DrawPlan(Svg& svg, View const& view, Figure const& figure, std::vector<AreaPart> const& area);
void DrawProfile(Svg& svg, View const& view, Figure const& figure);

// The style of what they and the sheet draw, as CSS.
extern char const* const plotStyle;

} // namespace kvarnio
