#pragma once

#include "screens/multiValueBox.h"
#include "screens/noticeForm.h"
#include "screens/recordFields.h"
#include "screens/recordMapping.h"
#include "support/failures.h"
#include "support/fakeHost.h"
#include "support/noticeBuilder.h"

#include <gtest/gtest.h>
#include <QAbstractButton>

#include <array>
#include <string>
#include <vector>

// Notices and screens for the tests of the way between them.
namespace mapping {

using screens::NoticeForm;
using screens::ScreenType;

inline constexpr std::array allScreens{ScreenType::T11, ScreenType::T12, ScreenType::T13, ScreenType::T14};

inline std::string nameOf(ScreenType type)
{
    return std::string(screens::typeName(type));
}

// A notice of the screen's type with nothing but its intent; any but an Add has a target.
inline Ntc bareNotice(ScreenType type, const std::string& intent)
{
    Ntc notice;
    notice.notice_typ = nameOf(type);
    notice.intent = intent;
    notice.target.present = intent != "ADD";
    return notice;
}

// What a notice is after it was shown and stored again.
inline Ntc stored(NoticeForm& form, Ntc notice)
{
    screens::fillScreen(form, notice);
    screens::fillNtcFromScreen(form, notice);
    return notice;
}

// What the controls as they stand are stored as.
inline Ntc read(NoticeForm& form)
{
    Ntc notice;
    screens::fillNtcFromScreen(form, notice);
    return notice;
}

inline NtcAntenna readSection(NoticeForm& form)
{
    Ntc notice;
    screens::setAntennaNumber(form, 1);
    screens::fillAntennaFromScreen(form, notice);
    return notice.antenna[0];
}

// Shows the section as the first one of a notice.
inline void showSection(NoticeForm& form, const NtcAntenna& section)
{
    Ntc notice = bareNotice(form.type(), "ADD");
    notice.antenna[0] = section;
    notice.antenna[0].present = true;
    screens::fillScreen(form, notice);
}

// The list of a multi-value box, set as by an operator with Enter.
inline void setEntries(const NoticeForm& form, const std::string& box,
                       const std::vector<std::string>& entries)
{
    form.multiValueBox(box)->clearAll();
    for (const auto& entry : entries)
        form.multiValueBox(box)->addEntry(entry);
}

inline std::vector<std::string> entries(const NoticeForm& form, const std::string& box)
{
    return form.multiValueBox(box)->entries();
}

inline std::vector<std::string> numbered(const std::string& text, int count)
{
    std::vector<std::string> all;
    for (int number = 1; number <= count; ++number)
        all.push_back(text + std::to_string(number));
    return all;
}

// Something in every control of the names.
inline void putSomething(const NoticeForm& form, const std::vector<std::string>& controls)
{
    for (const auto& control : controls) {
        if (auto* box = form.multiValueBox(control)) {
            box->addEntry("entry");
            box->showFirstEntry();
        } else if (form.control<QAbstractButton>(control)) {
            form.setSelected(control, true);
        } else {
            form.setText(control, "something");
        }
    }
}

inline bool isBlank(const NoticeForm& form, const std::string& control)
{
    if (const auto* box = form.multiValueBox(control))
        return box->entries().empty() && form.text(control).empty();
    if (form.control<QAbstractButton>(control))
        return !form.isSelected(control);
    return form.text(control).empty();
}

inline bool isEnabled(const NoticeForm& form, const char* control)
{
    return form.control(control)->isEnabled();
}

inline const FakeHost::Box tooManyBox{"Error", "Too many multi-values, contact the administrator",
                                      platform::Icon::Exclamation, platform::Buttons::Ok};
inline const FakeHost::Box unpairedBox{"Error", "Either the azm_fr or azm_to is missing",
                                       platform::Icon::Exclamation, platform::Buttons::Ok};

inline std::string focusOf(const NoticeForm& form)
{
    const auto* focus = form.focusWidget();
    return focus ? focus->objectName().toStdString() : "none";
}

} // namespace mapping
