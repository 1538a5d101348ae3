#include "screens/recordMapping.h"

#include "model/InitializeNtc.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/runtimeError.h"
#include "screens/antennaSection.h"
#include "screens/controlValues.h"
#include "screens/hints.h"
#include "screens/noticeSection.h"

namespace screens {

namespace {

constexpr int sections = static_cast<int>(decltype(Ntc::antenna)::size());

const NtcAntenna& section(const Ntc& notice, int number)
{
    return notice.antenna[static_cast<std::size_t>(number - 1)];
}

void enable(const NoticeForm& form, std::string_view button, bool enabled)
{
    if (auto* control = form.control(button))
        control->setEnabled(enabled);
}

// The way on is closed before a gap; what opens it again is paging back and filling.
void enablePaging(const NoticeForm& form, const Ntc& notice, int number)
{
    enable(form, "ButtonPrevAnt", number >= 2 && section(notice, number - 1).present);
    if (number < sections && !section(notice, number + 1).present)
        enable(form, "ButtonNextAnt", false);
}

} // namespace

// The key of the notice stays: it is no value of the record.
void InitalizeNotice(NoticeForm& form)
{
    blankAll(form, fields::noticeControls(form.type()));
    setAntennaNumber(form, 1);
}

void InitalizeAntenna(NoticeForm& form)
{
    blankAll(form, fields::antennaControls(form.type()));
}

void fillScreen(NoticeForm& form, const Ntc& notice)
{
    InitalizeNotice(form);
    InitalizeAntenna(form);
    const bool hasAntennas = notice.intent != "SUPPRESS";
    enable(form, "ButtonNextAnt", hasAntennas);
    enable(form, "ButtonPrevAnt", false);
    showNoticeSection(form, notice);
    setAntennaNumber(form, hasAntennas ? 1 : 0);
    if (hasAntennas)
        fillScreenFromAntenna(form, notice);
    form.setHidden(hiddenOf(form.type(), notice));
}

void fillNtcFromScreen(NoticeForm& form, Ntc& notice)
{
    InitializeNtc::initNtcExceptAntennas(notice);
    readNoticeSection(form, notice);
}

bool fillScreenFromAntenna(NoticeForm& form, const Ntc& notice)
{
    const int number = antennaNumber(form);
    if (number < 1 || number > sections || !section(notice, number).present) {
        platform::host().beep();
        return false;
    }
    InitalizeAntenna(form);
    showAntenna(form, section(notice, number));
    enablePaging(form, notice, number);
    return true;
}

void fillAntennaFromScreen(NoticeForm& form, Ntc& notice)
{
    const int number = antennaNumber(form);
    if (number < 1 || number > sections)
        platform::raise(platform::errSubscript);
    notice.antenna[static_cast<std::size_t>(number - 1)] = antennaOf(form);
}

int antennaNumber(const NoticeForm& form)
{
    return platform::roundToLong(platform::readNumber(form.text("TxtAntennaCnt")));
}

void setAntennaNumber(NoticeForm& form, int number)
{
    form.setText("TxtAntennaCnt", platform::integerText(number));
}

void clearTargetControls(NoticeForm& form)
{
    blankAll(form, fields::targetControls(form.type()));
}

} // namespace screens
