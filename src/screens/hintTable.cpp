#include "screens/hintTable.h"

#include <array>

namespace screens {

namespace {

struct HintRow
{
    Hint hint;
    const char* english;
    const char* french;
    const char* spanish;
};

// clang-format off
constexpr std::array<HintRow, hints> rows = {{
    {Hint::RefusedCharacters,
     "Refused, for no notice file can hold it: #",
     "Refusé, car aucun fichier de fiches ne peut le contenir : #",
     "Rechazado, pues ningún fichero de fichas puede contenerlo: #"},
    {Hint::NoCalendarDay,
     "No calendar has #: stored like this, the notice can't be opened again.",
     "Aucun calendrier ne connaît # : ainsi enregistrée, la fiche ne pourra plus être ouverte.",
     "Ningún calendario conoce #: guardada así, la ficha no podrá abrirse de nuevo."},
    {Hint::DateIncomplete,
     "A date is stored only with its day, month and year.",
     "Une date n'est enregistrée qu'avec le jour, le mois et l'année.",
     "Una fecha solo se guarda con día, mes y año."},
    {Hint::NoUnit,
     "Without its unit k, M or G this frequency is stored as 0.",
     "Sans son unité k, M ou G, cette fréquence est enregistrée comme 0.",
     "Sin su unidad k, M o G, esta frecuencia se guarda como 0."},
    {Hint::TooLarge,
     "This number is too large to be stored: an update would end the program.",
     "Ce nombre est trop grand pour être enregistré : une mise à jour terminerait le programme.",
     "Este número es demasiado grande para guardarse: una actualización terminaría el programa."},
    {Hint::Rounded,
     "Stored as the whole number #.",
     "Enregistré comme le nombre entier #.",
     "Se guarda como el número entero #."},
    {Hint::NotEntered,
     "Not yet in the list: Enter takes it in, leaving the box drops it.",
     "Pas encore dans la liste : Entrée l'y ajoute, quitter la case le supprime.",
     "Aún no está en la lista: Intro lo añade, salir de la casilla lo borra."},
    {Hint::TooManyEntries,
     "More than 6 entries: none of them is stored.",
     "Plus de 6 valeurs : aucune n'est enregistrée.",
     "Más de 6 valores: no se guarda ninguno."},
    {Hint::SectorsUnpaired,
     "The lists of azimuths differ in length: no sector is stored.",
     "Les listes d'azimuts n'ont pas la même longueur : aucun secteur n'est enregistré.",
     "Las listas de acimuts difieren en longitud: no se guarda ningún sector."},
    {Hint::NoRotation,
     "Sectors are stored only for a rotational antenna (R).",
     "Les secteurs ne sont enregistrés que pour une antenne rotative (R).",
     "Los sectores solo se guardan para una antena giratoria (R)."},
    {Hint::NotStored,
     "What stands in this field is not stored.",
     "Le contenu de ce champ n'est pas enregistré.",
     "El contenido de este campo no se guarda."},
    {Hint::TakenFromTarget,
     "With Suppress and Withdraw the value of the target is stored here: #",
     "Avec Suppress et Withdraw, c'est la valeur de la cible qui est enregistrée ici : #",
     "Con Suppress y Withdraw se guarda aquí el valor del destino: #"},
    {Hint::RemarkLines,
     "Line ends are not stored: the last two lines become one, and those before are lost. Part remarks by ;",
     "Les fins de ligne ne sont pas enregistrées : les deux dernières lignes n'en font qu'une, les précédentes sont perdues. Séparez par ;",
     "Los finales de línea no se guardan: las dos últimas líneas se unen y las anteriores se pierden. Separe con ;"},
    {Hint::RemarkParts,
     "Only the last two parts between ; go into the .upd file.",
     "Seules les deux dernières parties entre ; vont dans le fichier .upd.",
     "Solo las dos últimas partes entre ; van al fichero .upd."},
    {Hint::CoordinationNotShown,
     "An eleventh coordination administration is stored and not shown here: an update drops it.",
     "Une onzième administration de coordination est enregistrée mais pas affichée ici : une mise à jour la supprime.",
     "Una undécima administración de coordinación está guardada y no se muestra aquí: una actualización la elimina."},
    {Hint::TooManyStations,
     "Row 6 has more than 6 stations: an update stores none of a list with more than 6 entries.",
     "La ligne 6 a plus de 6 stations : une mise à jour n'enregistre rien d'une liste de plus de 6 valeurs.",
     "La fila 6 tiene más de 6 estaciones: una actualización no guarda nada de una lista de más de 6 valores."},
    {Hint::StationsNotShown,
     "Stored stations of this section that are not shown here: #. An update drops them.",
     "Stations enregistrées de cette section qui ne sont pas affichées ici : #. Une mise à jour les supprime.",
     "Estaciones guardadas de esta sección que no se muestran aquí: #. Una actualización las elimina."},
    {Hint::SectionNotStored,
     "Without any value of the antenna itself, an update stores nothing of this section.",
     "Sans aucune valeur de l'antenne même, une mise à jour n'enregistre rien de cette section.",
     "Sin ningún valor de la antena misma, una actualización no guarda nada de esta sección."},
}};
// clang-format on

} // namespace

QString hintText(Hint hint, std::string_view language, const QString& detail)
{
    const auto& row = rows[static_cast<std::size_t>(hint)];
    const char* words = row.english;
    if (language == "F")
        words = row.french;
    else if (language == "S")
        words = row.spanish;
    return QString::fromUtf8(words).replace(u'#', detail);
}

} // namespace screens
