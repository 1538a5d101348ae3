#pragma once

#include "model/Ntc.h"

// Emptying the notice record: every string becomes empty and every Boolean false, but for is_rot, which
// becomes "FALSE". adm and d_rcv are values of a whole load and stay unless a routine says otherwise.
namespace InitializeNtc {

void clearNtcAdm(Ntc& ntc);     // adm alone
void clearNtcRcvDate(Ntc& ntc); // d_rcv alone

void initRot(NtcRot& rot);
void initGeoPt(NtcGeoPt& point);
void initGeo(NtcGeo& geo);
void initRx(NtcRx& rx);
void initAntenna(NtcAntenna& antenna);
void initCoord(NtcCoord& coord);
void initTarget(NtcTarget& target);

void initNtcScalars(Ntc& ntc);        // all scalars but adm, notice_typ, stn_type, d_rcv
void initNtcExceptAntennas(Ntc& ntc); // keeps adm, d_rcv, notice_typ, stn_type and all antennas
void initNtc(Ntc& ntc);               // keeps adm and d_rcv

} // namespace InitializeNtc
