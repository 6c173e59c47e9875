#include "Nomi.h"

#include <array>

namespace bravona {

namespace {

template <std::size_t N>
const char* una(Caso& caso, const std::array<const char*, N>& voci)
{
    return voci[caso.sotto(N)];
}

constexpr std::array<const char*, 40> cognomi{
    "Rossi",   "Bianchi", "D'Angelo",   "Dell'Orto", "Niccolò",  "Ferrari", "Esposito", "Romano",
    "Colombo", "Ricci",   "Marino",     "Greco",     "Bruno",    "Gallo",   "Conti",    "De Luca",
    "Mancini", "Costa",   "Giordano",   "Rizzo",     "Lombardi", "Moretti", "Barbieri", "Fontana",
    "Santoro", "Mariani", "Rinaldi",    "Caruso",    "Ferrara",  "Galli",   "Martini",  "Leone",
    "Longo",   "Gentile", "Martinelli", "Vitale",    "Lombardo", "Serra",   "Coppola",  "De Santis"};
constexpr std::array<const char*, 16> attivita{
    "Officine",    "Ferramenta", "L'Arte del Legno", "Idraulica",   "Elettroforniture",
    "Autoricambi", "Edilizia",   "Falegnameria",     "Carpenteria", "Società Agricola",
    "Caffè",       "Impianti",   "Termotecnica",     "Utensileria", "Pittura & Design",
    "Vivaio"};
constexpr std::array<const char*, 8> forme{"S.r.l.", "S.p.A.", "S.n.c.", "S.a.s.", "& Figli", "& C.", "Soc. Coop.", ""};
constexpr std::array<const char*, 18> vie{"Via Roma",
                                          "Via Garibaldi",
                                          "Corso Italia",
                                          "Piazza della Libertà",
                                          "Via dell'Artigianato",
                                          "Viale Europa",
                                          "Via Mazzini",
                                          "Via Verdi",
                                          "Strada Statale",
                                          "Via XX Settembre",
                                          "Largo Università",
                                          "Via Leonardo da Vinci",
                                          "Via Po",
                                          "Corso Vittorio Emanuele II",
                                          "Via dei Mille",
                                          "Via Sant'Agata",
                                          "Via Nizza",
                                          "Via Industriale"};
constexpr std::array<Comune, 24> comuni{{{"Torino", "TO", "10121"},
                                         {"Milano", "MI", "20121"},
                                         {"Roma", "RM", "00184"},
                                         {"Napoli", "NA", "80133"},
                                         {"Bari", "BA", "70121"},
                                         {"Palermo", "PA", "90133"},
                                         {"Genova", "GE", "16121"},
                                         {"Bologna", "BO", "40121"},
                                         {"Firenze", "FI", "50122"},
                                         {"Verona", "VR", "37121"},
                                         {"Padova", "PD", "35121"},
                                         {"Brescia", "BS", "25121"},
                                         {"Forlì", "FC", "47121"},
                                         {"Cantù", "CO", "22063"},
                                         {"Mondovì", "CN", "12084"},
                                         {"L'Aquila", "AQ", "67100"},
                                         {"Reggio nell'Emilia", "RE", "42121"},
                                         {"Parma", "PR", "43121"},
                                         {"Modena", "MO", "41121"},
                                         {"Perugia", "PG", "06121"},
                                         {"Cagliari", "CA", "09124"},
                                         {"Trento", "TN", "38122"},
                                         {"Trieste", "TS", "34121"},
                                         {"Ancona", "AN", "60121"}}};
constexpr std::array<const char*, 20> oggetti{"Vite",         "Dado",     "Rondella",  "Bullone",  "Tassello",
                                              "Cerniera",     "Maniglia", "Lucchetto", "Raccordo", "Rubinetto",
                                              "Interruttore", "Presa",    "Cavo",      "Lampada",  "Pannello",
                                              "Vernice",      "Pennello", "Chiave",    "Punta",    "Lama"};
constexpr std::array<const char*, 12> qualita{"zincata",        "in acciaio inox", "in ottone",        "in nylon",
                                              "autofilettante", "per legno",       "per calcestruzzo", "a tenuta",
                                              "di sicurezza",   "ad alta qualità", "tipo \"Plus\"",    "da incasso"};

std::string due(int n)
{
    return (n < 10 ? "0" : "") + std::to_string(n);
}

}  // namespace

std::string nomeDitta(Caso& caso)
{
    std::string nome;
    if (caso.unoSu(3))
        nome = std::string(una(caso, cognomi)) + " " + una(caso, cognomi);
    else
        nome = std::string(una(caso, attivita)) + " " + una(caso, cognomi);
    const std::string forma = una(caso, forme);
    if (!forma.empty())
        nome += " " + forma;
    return nome;
}

std::string via(Caso& caso)
{
    return std::string(una(caso, vie)) + ", " + std::to_string(caso.fra(1, 240));
}

const Comune& comune(Caso& caso)
{
    return comuni[caso.sotto(comuni.size())];
}

std::string telefono(Caso& caso)
{
    std::string numero = "0" + std::to_string(caso.fra(10, 99)) + "/";
    for (int i = 0; i < 7; ++i)
        numero += std::to_string(caso.fra(0, 9));
    return numero;
}

std::string partitaIva(Caso& caso)
{
    std::string cifre;
    int somma = 0;
    for (int i = 0; i < 10; ++i) {
        const int cifra = caso.fra(0, 9);
        cifre += std::to_string(cifra);
        const int doppia = cifra * 2;
        somma += i % 2 == 0 ? cifra : doppia > 9 ? doppia - 9 : doppia;
    }
    return cifre + std::to_string((10 - somma % 10) % 10);
}

std::string codiceArticolo(Caso& caso, int numero)
{
    constexpr std::array<const char*, 6> serie{"V", "D", "R", "T", "CAV", "MAN"};
    return std::string(una(caso, serie)) + "-" + std::to_string(1000 + numero);
}

std::string descrizioneArticolo(Caso& caso, int numero)
{
    return std::string(una(caso, oggetti)) + " " + una(caso, qualita) + " " + due(caso.fra(2, 24)) + "x" +
           std::to_string(10 + numero % 300);
}

}  // namespace bravona
