#include "platform/values/Date.h"

#include <array>
#include <chrono>

#include "platform/values/Errore.h"

namespace bravona {

namespace {

namespace cal = std::chrono;

constexpr std::int32_t giorniFinoAl1970 = 25'569;  // from 30/12/1899
constexpr int primoAnno = 100;
constexpr int ultimoAnno = 9999;
constexpr int mesiPerAnno = 12;

cal::year_month_day calendario(std::int32_t giorni)
{
    return cal::year_month_day(cal::sys_days(cal::days(giorni - giorniFinoAl1970)));
}

std::int32_t numeroGiorno(cal::year_month_day ymd)
{
    return static_cast<std::int32_t>(cal::sys_days(ymd).time_since_epoch().count()) + giorniFinoAl1970;
}

[[noreturn]] void fuoriCalendario()
{
    throw Errore(errori::numeroTroppoGrande, "Data fuori dal calendario");
}

bool cifra(char c)
{
    return c >= '0' && c <= '9';
}

// A run of digits at the front of the text.
struct Cifre {
    int valore = 0;
    int quante = 0;
};

Cifre prendiCifre(std::string_view& testo, int massimo)
{
    Cifre c;
    while (c.quante < massimo && !testo.empty() && cifra(testo.front())) {
        c.valore = c.valore * 10 + (testo.front() - '0');
        ++c.quante;
        testo.remove_prefix(1);
    }
    return c;
}

constexpr int cifreAnnoBreve = 2;
constexpr int cifreAnno = 4;

int annoIntero(const Cifre& anno)
{
    constexpr int primoDel900 = 30;
    if (anno.quante == cifreAnno) {
        return anno.valore;
    }
    return anno.valore + (anno.valore >= primoDel900 ? 1900 : 2000);
}

}  // namespace

std::optional<Date> Date::fromYmd(int year, int month, int day)
{
    if (year < primoAnno || year > ultimoAnno || month < 1 || day < 1 || month > mesiPerAnno) {
        return std::nullopt;
    }
    const cal::year_month_day ymd(cal::year(year), cal::month(static_cast<unsigned>(month)),
                                  cal::day(static_cast<unsigned>(day)));
    if (!ymd.ok()) {
        return std::nullopt;
    }
    return fromDayNumber(numeroGiorno(ymd));
}

std::optional<Date> Date::parse(std::string_view text)
{
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }

    const Cifre giorno = prendiCifre(text, 2);
    if (giorno.quante == 0 || text.empty()) {
        return std::nullopt;
    }
    const char separatore = text.front();
    const bool separato = separatore == '/' || separatore == '-' || separatore == '.';
    if (separato) {
        text.remove_prefix(1);
    }
    const Cifre mese = prendiCifre(text, 2);
    if (separato) {
        if (mese.quante == 0 || !text.starts_with(separatore)) {
            return std::nullopt;
        }
        text.remove_prefix(1);
    } else if (giorno.quante != 2 || mese.quante != 2) {
        return std::nullopt;
    }
    const Cifre anno = prendiCifre(text, cifreAnno);
    if (!text.empty() || (anno.quante != cifreAnnoBreve && anno.quante != cifreAnno)) {
        return std::nullopt;
    }
    return fromYmd(annoIntero(anno), mese.valore, giorno.valore);
}

int Date::year() const
{
    return static_cast<int>(calendario(days_).year());
}

int Date::month() const
{
    return static_cast<int>(static_cast<unsigned>(calendario(days_).month()));
}

int Date::day() const
{
    return static_cast<int>(static_cast<unsigned>(calendario(days_).day()));
}

Date Date::addDays(std::int32_t days) const
{
    const std::int64_t n = std::int64_t{days_} + days;
    if (n < first.days_ || n > last.days_) {
        fuoriCalendario();
    }
    return fromDayNumber(static_cast<std::int32_t>(n));
}

Date Date::addMonths(int months) const
{
    const auto ymd = calendario(days_);
    const std::int64_t mesi =
        std::int64_t{static_cast<int>(ymd.year())} * mesiPerAnno + static_cast<unsigned>(ymd.month()) - 1 + months;
    if (mesi < primoAnno * mesiPerAnno || mesi >= (ultimoAnno + 1) * mesiPerAnno) {
        fuoriCalendario();
    }
    const cal::year_month mese(cal::year(static_cast<int>(mesi / mesiPerAnno)),
                               cal::month(static_cast<unsigned>(mesi % mesiPerAnno) + 1));
    const cal::year_month_day stesso = mese / ymd.day();
    return fromDayNumber(numeroGiorno(stesso.ok() ? stesso : cal::year_month_day(mese / cal::last)));
}

std::string Date::text() const
{
    const auto ymd = calendario(days_);
    std::array<char, 10> testo{};
    const auto scrivi = [&testo](std::size_t da, std::size_t cifre, unsigned valore) {
        for (std::size_t i = cifre; i-- > 0; valore /= 10) {
            testo[da + i] = static_cast<char>('0' + valore % 10);
        }
    };
    scrivi(0, 2, static_cast<unsigned>(ymd.day()));
    testo[2] = '/';
    scrivi(3, 2, static_cast<unsigned>(ymd.month()));
    testo[5] = '/';
    scrivi(6, 4, static_cast<unsigned>(static_cast<int>(ymd.year())));
    return {testo.data(), testo.size()};
}

}  // namespace bravona
