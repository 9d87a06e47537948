#pragma once

#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"

// What a drop in a list does to its rows, without the pointer's way there:
// the row goes behind target, or with into to the end of target's children,
// and the list reports the relocation. False, and nothing moves, when target
// is the row or lies below it.
inline bool moveRowInList(UltimateTree* tree, UltimateTreeItem* row, UltimateTreeItem* target, bool into)
{
    for (UltimateTreeItem* up = target; up; up = up->parentItem()) {
        if (up == row)
            return false;
    }
    tree->removeRow(row);
    if (into)
        target->addChild(row);
    else if (target->parentItem())
        target->parentItem()->insertChildAfter(row, target);
    else
        tree->insertRowAfter(row, target);
    emit tree->itemRelocated(row);
    return true;
}
