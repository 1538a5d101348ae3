#pragma once

#include <array>

// Words set aside for a test of missing keys at Update. No operation shows them in this version: a notice
// with empty keys is written as it stands.
namespace screens::messageCatalogue {

inline constexpr const char* missingKeys = "The following mandatory keys are missing";
inline constexpr const char* noProvision = "One of the Provisions must be selected";
inline constexpr const char* noAdministration = "The notifying administration must be entered";
inline constexpr const char* noUnit = "The units for the frequency must be selected";
inline constexpr const char* noEastWest = "The direction (E or W) must be selected";
inline constexpr const char* noNorthSouth = "The direction (N or S) must be selected";

inline constexpr const char* editNotice = "Do you want to edit the notice section?";
inline constexpr const char* editAntenna = "Do you want to edit the antenna section?";
inline constexpr const char* noticeTitle = "Missing Keys - Notice";
inline constexpr const char* antennaTitle = "Missing Keys - Antenna";

inline constexpr const char* createRefused = "Notifying administration is missing, cannot create the notice";
inline constexpr const char* tooManyPoints = "Mulipoint can only have max 6 points - ERROR";

// What the keys are called in the list of missing ones.
inline constexpr std::array keyLabels{
    "Assigned Frequency",
    "Class of Station",
    "Designation of emission",
    "Beamwidth",
    "Geographic area",
    "Transmitting station",
    "Coordinates (longitude)",
    "Coordinates (latitude)",
    "Address code",
    "Hours of operation",
    "Date of bringing in use",
    "Receiving station(s)",
    "Coordinates",
    "Max gain",
};

} // namespace screens::messageCatalogue
