#include "tools/sampleFile.h"

#include "tools/noticeGenerator.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace sampleFile {

namespace {

// Notices 1 and 5 share their position and give no class of operation, 2 and 8 share position and class of
// operation, 4 and 11 share their zone. The lines vary as those of administrations do: blanks and tabs around
// "=", keys in capitals, values in small letters, positions with and without seconds, either coordination
// tag.
constexpr std::string_view notices = R"(Trial notices; every name in them is invented
<HEAD>
t_adm=QVA
</HEAD>

<NOTICE>
t_notice_type=T12
t_action=ADD
t_fragment=NTFD_RR
t_addr_code=A
t_freq_assgn=151.3375
t_geo_type=POINT
t_site_name=Vélqorne Hill
t_ctry=QVA
t_long=+0123045
t_lat=-081512
t_site_alt=412
t_op_hh_fr=00:00
t_op_hh_to=24:00
t_stn_cls=FB
t_emi_cls=F3E--
t_bdwdth_cde=8K00
t_nat_srv=CP
t_nat_srv=CO
t_d_inuse=2025-03-01
t_d_adm_ntc=2025-01-15
t_call_sign=QX4ABD
t_station_id=STN 17
t_adm_ref_id=QREF-000001
t_is_resub=FALSE
t_freq_dev=2.5
t_op_agcy=7
t_prov=RR11.2
t_remarks=antenna shared with the harbour station
t_remarks=reçoit aussi les stations voisines
<COORDINATION>
t_coord_prov=RR9.21
t_adm=XOL
t_adm=ZQM
</COORDINATION>
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.025
t_pwr_dbw=17.5
t_pwr_eiv=E
t_ant_dir=ND
t_gain_type=D
t_gain_max=3.5
t_polar=V
t_hgt_agl=32
<RX_STATION>
t_nois_tmp=290
t_geo_type=CIRCLE
t_ctry=QVA
t_radius=40
t_long=+0123045
t_lat=-081512
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type = T11
t_action = ADD
t_fragment = NTFD_RR
t_addr_code = B
t_freq_assgn = 7.4125
t_geo_type = POINT
t_site_name = Grüxataly
t_ctry = QVA
t_long = -0451230
t_lat = +331705
t_site_alt = 88
t_op_hh_fr = 06:00
t_op_hh_to = 20:30
t_stn_cls = FX
t_op_cls = B
t_emi_cls = J3E--
t_bdwdth_cde = 2K80
t_nat_srv = CP
t_freq_carr = 7.4111
t_d_inuse = 2024-11-30
t_d_adm_ntc = 2025-01-15
t_call_sign = QAB21
t_call_sign = QAB22
t_adm_ref_id = QREF-000002
t_op_agcy = 12
t_op_agcy = 104
t_prov = RR11.2
<COORD>
t_adm = XEY
</COORD>
<ANTENNA>
t_pwr_xyz = X
t_pwr_ant = 1
t_pwr_dbw = 36.2
t_pwr_eiv = V
t_pwr_dens = -41.5
t_ant_dir = D
t_azm_max_e = 123.5
t_bmwdth = 38
t_gain_type = I
t_gain_max = 9.5
t_elev = 12
t_polar = H
t_hgt_agl = 24
t_dist_max = 850
<ROTATIONAL>
t_azm_fr = 90
t_azm_to = 150
</ROTATIONAL>
<ROTATIONAL>
t_azm_fr = 210
t_azm_to = 255
</ROTATIONAL>
<RX_STATION>
t_nois_tmp = 1200
t_geo_type = POINT
t_site_name = Tøqgrund
t_ctry = XOL
t_long = -0440105
t_lat = +325959
</RX_STATION>
<RX_STATION>
t_geo_type = POINT
t_site_name = Drélivik Süd
t_ctry = XOL
t_long = -04330
t_lat = +3312
</RX_STATION>
</ANTENNA>
<ANTENNA>
t_pwr_xyz = X
t_pwr_ant = 0.5
t_pwr_dbw = 30
t_pwr_eiv = V
t_ant_dir = ND
t_ant_ref = QANT7
t_polar = V
t_hgt_agl = 18
<RX_STATION>
t_geo_type = MULTIPOINT
<POINT>
t_long = -0450010
t_lat = +330020
</POINT>
<POINT>
t_long = -0451510
t_lat = +331520
</POINT>
<POINT>
t_long = -0453010
t_lat = +333020
</POINT>
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T13
t_action=ADD
t_fragment=Req_agrt
t_addr_code=A
t_freq_assgn=8.3565
t_geo_type=POINT
t_site_name=Cøldébec
t_ctry=QVA
t_long=+0050718
t_lat=+585949
t_site_alt=6
t_op_hh_fr=05:30
t_op_hh_to=23:59
t_stn_cls=FC
t_op_cls=A
t_emi_cls=J3E--
t_bdwdth_cde=2K80
t_nat_srv=CV
t_freq_carr=8.3551
t_d_inuse=2025-06-15
t_d_adm_ntc=2025-02-03
t_adm_ref_id=QREF-000003
t_is_resub=TRUE
t_op_agcy=013
t_prov=RR9.21
t_remarks=Betrieb nur während der Messe für Fischer
<COORDINATION>
t_coord_prov=RR9.21
t_adm=QIB
</COORDINATION>
<ANTENNA>
t_pwr_xyz=X
t_pwr_ant=0.1
t_pwr_dbw=20
t_pwr_eiv=V
t_polar=V
t_hgt_agl=15
<TX_STATION>
t_geo_type=CIRCLE
t_ctry=QVA
t_radius=250
t_long=+0043000
t_lat=+580000
</TX_STATION>
<TX_STATION>
t_geo_type=ZONE
t_zone_id=XQC
</TX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T14
t_action=ADD
t_fragment=NTFD_RR
t_addr_code=C
t_freq_assgn=72.0125
t_geo_type=ZONE
t_ctry=QVA
t_zone_id=QBD
t_op_hh_fr=00:00
t_op_hh_to=24:00
t_stn_cls=ML
t_emi_cls=F3E--
t_bdwdth_cde=16K0
t_nat_srv=CO
t_d_inuse=2025-04-01
t_d_adm_ntc=2025-01-20
t_adm_ref_id=QREF-000004
t_is_resub=FALSE
t_op_agcy=3
t_prov=RR11.2
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.01
t_pwr_dbw=10
t_pwr_eiv=E
t_gain_type=D
t_gain_max=0
t_polar=V
t_hgt_agl=4
<RX_STATION>
t_geo_type=ZONE
t_zone_id=QBD
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T12
t_action=ADD
t_fragment=NTFD_RR
t_addr_code=A
t_freq_assgn=151.3375
t_geo_type=POINT
t_site_name=Vélqorne Hill
t_ctry=QVA
t_long=+0123045
t_lat=-081512
t_site_alt=412
t_op_hh_fr=00:00
t_op_hh_to=24:00
t_stn_cls=FB
t_emi_cls=F3E--
t_bdwdth_cde=8K00
t_nat_srv=CP
t_d_inuse=2025-09-01
t_d_adm_ntc=2025-02-10
t_call_sign=QX4ABE
t_adm_ref_id=QREF-000005
t_op_agcy=7
t_prov=RR11.2
t_remarks=second transmitter on the mast
t_remarks=power reduced by half at night
t_remarks=trials until the end of the year
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.05
t_pwr_dbw=20.5
t_pwr_eiv=E
t_ant_dir=D
t_azm_max_e=45
t_bmwdth=60
t_gain_type=D
t_gain_max=6
t_polar=V
t_hgt_agl=36
<RX_STATION>
t_geo_type=POINT
t_site_name=Narüoda
t_ctry=ZQM
t_long=+0125930
t_lat=-080001
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T11
t_action=SUPPRESS
t_fragment=NTFD_RR
t_trg_freq_assgn=7428.75
t_trg_stn_cls=FX
t_trg_bdwdth_cde=28M0
t_trg_emi_cls=G7W--
t_trg_op_hh_fr=00:00
t_trg_op_hh_to=24:00
t_trg_geo_type=POINT
t_trg_long=+0113502
t_trg_lat=-091006
t_trg_adm_ref_id=QOLD-004711
t_d_adm_ntc=2025-01-31
t_prov=RR11.2
</NOTICE>

<NOTICE>
T_NOTICE_TYPE	=	t12
T_ACTION	=	withdraw
T_FRAGMENT	=	NTFD_RR
T_TRG_FREQ_ASSGN	=	98.4
T_TRG_STN_CLS	=	bc
T_TRG_BDWDTH_CDE	=	180K
T_TRG_EMI_CLS	=	F8EHF
T_TRG_OP_HH_FR	=	00:00
T_TRG_OP_HH_TO	=	24:00
T_TRG_GEO_TYPE	=	point
T_TRG_LONG	=	+01215
T_TRG_LAT	=	-0820
T_TRG_ADM_REF_ID	=	QOLD-000815
T_REMARKS	=	never came on the air
</NOTICE>

<NOTICE>
t_notice_type=T11
t_action=MODIFY
t_fragment=NTFD_RR
t_trg_freq_assgn=7.408
t_trg_stn_cls=FX
t_trg_bdwdth_cde=2K80
t_trg_emi_cls=J3E--
t_trg_op_hh_fr=06:00
t_trg_op_hh_to=20:30
t_trg_op_cls=B
t_trg_geo_type=POINT
t_trg_long=-0451230
t_trg_lat=+331705
t_trg_adm_ref_id=QOLD-000231
t_addr_code=B
t_freq_assgn=7.4125
t_geo_type=POINT
t_site_name=Grüxataly
t_ctry=QVA
t_long=-0451230
t_lat=+331705
t_site_alt=88
t_op_hh_fr=06:00
t_op_hh_to=20:30
t_stn_cls=FX
t_op_cls=B
t_emi_cls=J3E--
t_bdwdth_cde=2K80
t_nat_srv=CP
t_freq_carr=7.4111
t_d_inuse=2024-11-30
t_d_adm_ntc=2025-02-17
t_call_sign=QAB21
t_adm_ref_id=QREF-000008
t_op_agcy=12
t_prov=RR11.2
<ANTENNA>
t_pwr_xyz=X
t_pwr_ant=1
t_pwr_dbw=36.2
t_pwr_eiv=V
t_ant_dir=D
t_azm_max_e=128
t_bmwdth=38
t_gain_type=I
t_gain_max=9.5
t_polar=H
t_hgt_agl=24
<RX_STATION>
t_nois_tmp=1200
t_geo_type=POINT
t_site_name=Tøqgrund
t_ctry=XOL
t_long=-0440105
t_lat=+325959
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T13
t_action=MODIFY
t_fragment=NTFD_RR
t_trg_freq_assgn=160.625
t_trg_op_hh_fr=00:00
t_trg_op_hh_to=24:00
t_trg_geo_type=POINT
t_trg_long=-0171920
t_trg_lat=+214100
t_addr_code=QA
t_freq_assgn=160.6375
t_geo_type=POINT
t_site_name=Quovumar Nørd
t_ctry=QVA
t_long=-0171955
t_lat=+214130
t_op_hh_fr=00:00
t_op_hh_to=24:00
t_stn_cls=FB
t_emi_cls=F3E--
t_bdwdth_cde=8K00
t_nat_srv=OT
t_d_inuse=2025-05-20
t_d_adm_ntc=2025-02-18
t_call_sign=QK9Z
t_adm_ref_id=QREF-000009
t_freq_dev=2.5
t_op_agcy=055
t_prov=RR11.2
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.025
t_pwr_dbw=14
t_pwr_eiv=E
t_polar=V
t_hgt_agl=2
<TX_STATION>
t_geo_type=CIRCLE
t_ctry=QVA
t_radius=60
t_long=-0172000
t_lat=+214000
</TX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T14
t_action=ADD
t_fragment=NTFD_RR
t_addr_code=C
t_freq_assgn=412.55
t_geo_type=CIRCLE
t_ctry=QVA
t_radius=120
t_long=+0100000
t_lat=-073000
t_op_hh_fr=07:45
t_op_hh_to=21:15
t_stn_cls=MO
t_op_cls=C
t_emi_cls=G1W--
t_bdwdth_cde=12K5
t_nat_srv=CO
t_d_inuse=2025-07-01
t_d_adm_ntc=2025-02-20
t_adm_ref_id=QREF-000010
t_op_agcy=104
t_prov=RR11.2
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.01
t_pwr_dbw=8.5
t_pwr_eiv=E
t_gain_type=D
t_gain_max=0
t_polar=V
t_hgt_agl=3
<RX_STATION>
t_geo_type=CIRCLE
t_ctry=QVA
t_radius=120
t_long=+0100000
t_lat=-073000
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T14
t_action=MODIFY
t_fragment=NTFD_RR
t_trg_freq_assgn=72.0125
t_trg_stn_cls=ML
t_trg_bdwdth_cde=16K0
t_trg_emi_cls=F3E--
t_trg_op_hh_fr=00:00
t_trg_op_hh_to=24:00
t_trg_zone_id=QBC
t_trg_geo_type=ZONE
t_trg_adm_ref_id=QOLD-000077
t_addr_code=C
t_freq_assgn=72.0125
t_geo_type=ZONE
t_ctry=QVA
t_zone_id=QBD
t_op_hh_fr=00:00
t_op_hh_to=24:00
t_stn_cls=ML
t_emi_cls=F3E--
t_bdwdth_cde=16K0
t_nat_srv=CO
t_d_inuse=2025-04-01
t_d_adm_ntc=2025-02-21
t_adm_ref_id=QREF-000011
t_op_agcy=3
t_prov=RR11.2
t_remarks=moves from the neighbouring zone
<ANTENNA>
t_pwr_xyz=Y
t_pwr_ant=0.01
t_pwr_dbw=10
t_pwr_eiv=E
t_gain_type=D
t_gain_max=0
t_polar=V
t_hgt_agl=4
<RX_STATION>
t_geo_type=ZONE
t_zone_id=QBD
</RX_STATION>
</ANTENNA>
</NOTICE>

<NOTICE>
t_notice_type=T14
t_action=SUPPRESS
t_fragment=NTFD_RR
t_trg_freq_assgn=84.7625
t_trg_stn_cls=ML
t_trg_bdwdth_cde=16K0
t_trg_emi_cls=F3E--
t_trg_op_hh_fr=06:00
t_trg_op_hh_to=18:00
t_trg_zone_id=XQE
t_trg_geo_type=ZONE
t_trg_adm_ref_id=QOLD-000102
</NOTICE>

<TAIL>
t_num_notices = 12
</TAIL>
)";

} // namespace

std::string text()
{
    std::string lines;
    lines.reserve(notices.size() * 2);
    for (const char letter : notices) {
        if (letter == '\n')
            lines += '\r';
        lines += letter;
    }
    return noticeGenerator::toAnsi(lines);
}

void write(const std::string& path)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text();
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

} // namespace sampleFile
