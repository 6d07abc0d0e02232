#pragma once

#include "distance/distance_tree.h"

namespace tessarin {

class TextForm;

// Adds "Save Tree &As..." to the File menu of the report window of a tree run: the tree in Newick
// format, or the distance matrix as a PHYLIP or a TSV table, by the filter chosen.
void OfferTreeExports(TextForm& report, DistanceTreeResult result);

}  // namespace tessarin
