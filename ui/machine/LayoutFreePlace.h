// Finds room on the machine for what does not fit where it should stand.
#pragma once
#include <QRect>
#include <span>

// The place of wanted's size that lies in area, covers none of taken and is nearest to wanted,
// counting the pixels it is moved sideways plus those up or down. wanted itself when it is free;
// a moved one keeps 5 pixels from those it makes way for. wanted too when nothing is free.
QRect NearestFreePlace(const QRect& wanted, const QRect& area, std::span<const QRect> taken);
