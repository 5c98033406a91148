#include "tools/sample/names.h"

namespace sample {
namespace {

// clang-format off
constexpr const char* kSurnames[] = {
    "O'Neil", "Müller", "Back\\slash", "100%Sure", "Under_score", "D'Angelo",
    "Nuñez García", "Wolfeschlegelsteinhausenbergerdo", "van der \"Berg\"", "Παπαδόπουλος", "田中", "Žižka",

    "Abbott", "Ackermann", "Adler", "Albrecht", "Andersson", "Arnold", "Bauer", "Becker", "Bergmann",
    "Berger", "Bianchi", "Böhm", "Brandt", "Braun", "Busch", "Carlsen", "Castro", "Clark", "Çelik",
    "Dietrich", "Dubois", "Dvořák", "Ebert", "Eder", "Engel", "Ernst", "Evans", "Fabre", "Fischer",
    "Fleming", "Frank", "Friedrich", "Fuchs", "Garnier", "Graf", "Groß", "Großmann", "Günther", "Haas",
    "Hahn", "Hansen", "Hartmann", "Heinrich", "Herrmann", "Hoffmann", "Horn", "Huber", "Ivanov", "Jäger",
    "Jansen", "Jensen", "Jung", "Kaiser", "Keller", "Kelly", "Klein", "Koch", "Kowalski", "Krämer",
    "Krause", "Kühn", "Lang", "Lefèvre", "Lehmann", "Lindgren", "Lopez", "Lorenz", "Ludwig", "Maier",
    "Marchetti", "Martin", "Martínez", "Mayer", "McKenzie", "Meier", "Meyer", "Moreau", "Morgan",
    "Möller", "Nagy", "Neumann", "Nguyễn", "Novak", "O'Brien", "Ødegård", "Olsson", "Öztürk", "Papadakis",
    "Pereira", "Peters", "Petrović", "Pohl", "Popescu", "Quinn", "Richter", "Rossi", "Roth", "Ryan",
    "Sanchez", "Sauer", "Schäfer", "Schmidt", "Schneider", "Scholz", "Schröder", "Schulz", "Schwarz",
    "Seidel", "Silva", "Smith", "Sommer", "Stein", "Szabó", "Thomas", "Thompson", "Toth", "Ullrich",
    "Urban", "Vasquez", "Vogel", "Wagner", "Walsh", "Weber", "Weiß", "Werner", "Winkler", "Wolf", "Young",
    "Zhang", "Ziegler", "Zimmermann",
};

constexpr Firstname kFirstnames[] = {
    {"María", "f"}, {"Jürgen", "m"}, {"Anne-Marie", "f"}, {"José", "m"}, {"Zoë", "f"}, {"Søren", "m"},
    {"Chloé", "f"}, {"Łukasz", "m"}, {"Robin", "-"}, {"D'Arcy", "m"},
    {"Alice", "f"}, {"Anton", "m"}, {"Barbara", "f"}, {"Ben", "m"}, {"Carla", "f"}, {"Christian", "m"},
    {"Daniela", "f"}, {"David", "m"}, {"Elena", "f"}, {"Emil", "m"}, {"Eva", "f"}, {"Felix", "m"},
    {"Franziska", "f"}, {"Georg", "m"}, {"Hanna", "f"}, {"Hugo", "m"}, {"Ida", "f"}, {"Ivan", "m"},
    {"Julia", "f"}, {"Karl", "m"}, {"Kim", "-"}, {"Laura", "f"}, {"Leon", "m"}, {"Lucia", "f"},
    {"Magdalena", "f"}, {"Martin", "m"}, {"Mia", "f"}, {"Nils", "m"}, {"Nora", "f"}, {"Oskar", "m"},
    {"Paula", "f"}, {"Peter", "m"}, {"Rosa", "f"}, {"Samuel", "m"}, {"Sofia", "f"}, {"Stefan", "m"},
    {"Theresa", "f"}, {"Thomas", "m"}, {"Ursula", "f"}, {"Viktor", "m"}, {"Wilhelmina", "f"}, {"Xaver", "m"},
};
// clang-format on

}  // namespace

std::span<const char* const> Surnames() { return kSurnames; }

std::span<const Firstname> Firstnames() { return kFirstnames; }

}  // namespace sample
