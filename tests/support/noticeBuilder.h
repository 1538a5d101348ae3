#pragma once

#include "model/Ntc.h"

// A notice for tests: aNotice().withStations(2).build(). Every value is one that the database gives back as
// it was, and no two values are alike.
class NoticeBuilder
{
public:
    explicit NoticeBuilder(const std::string& noticeType, const std::string& intent);

    NoticeBuilder& withAntennas(std::size_t antennas, std::size_t sectors, std::size_t stations);
    NoticeBuilder& withPoints(std::size_t points);
    [[nodiscard]] const Ntc& build() const { return m_ntc; }

private:
    Ntc m_ntc;
};

[[nodiscard]] inline NoticeBuilder aNotice(const std::string& noticeType = "T12",
                                           const std::string& intent = "ADD")
{
    return NoticeBuilder(noticeType, intent);
}

// A position that differs with its number.
[[nodiscard]] NtcGeoPt aPoint(std::size_t number);

// Everything that a notice holds, a line each, so that two that differ show where.
[[nodiscard]] std::string described(const Ntc& ntc);

#define EXPECT_SAME_NOTICE(left_, right_)                                                                    \
    do {                                                                                                     \
        EXPECT_EQ(described(left_), described(right_));                                                      \
        EXPECT_TRUE((left_) == (right_));                                                                    \
    } while (false)
