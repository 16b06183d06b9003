#pragma once

// Members of the welded families with the dimensions of a new project, S355, eta 1.2.

#include "support/members.h"

namespace welded {

inline constexpr int kFamilies[] = {22, 24, 25, 26, 27, 51, 52, 53, 54, 56};

// The plate of family 52 has the stiffener L 300x100x11.5, that of 54 HP 80x7.
inline kestrum::Member Default(int family)
{
    kestrum::Member s = kestrum::Member::Bare(family).Steel(355);
    s.neta = 1.2F;
    s.class23 = 1;
    s.flangeload = 50;
    s.p22 = {600, 200, 400, 12, 20, 20};
    s.p24 = {300, 300, 540, 6, 25, 15, 5};
    s.p25 = {300, 300, 430, 6, 25, 15, 15};
    s.p26 = {200, 200, 10, 10};
    s.p27 = {600, 600, 600, 10, 20, 20, 25};
    s.p51 = {200, 600, 10, 10};
    s.p52 = {600, 10};
    s.p53 = {300, 600, 100, 11.5, 10, 16};
    s.p54 = {600, 10};
    s.p56 = {580, 300, 300, 12, 20, 20};
    return s.Family(52).Row("300x100x11.5").Family(54).Row("80x7").Family(family);
}

}  // namespace welded
