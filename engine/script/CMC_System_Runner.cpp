#include "script/CMC_System_Runner.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CPath.h"
#include "platform/World.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_System.h"
#include "script/Notes.h"

#include <chrono>

namespace {

constexpr const char * kDays[] = {"Niedziela", "Poniedzialek", "Wtorek", "Sroda",
                                  "Czwartek",  "Piatek",       "Sobota"};
constexpr const char * kMonths[] = {"Styczen", "Luty",     "Marzec",   "Kwiecien",    "Maj",      "Czerwiec",
                                    "Lipiec",  "Sierpien", "Wrzesien", "Pazdziernik", "Listopad", "Grudzien"};

struct Date {
    int year;
    int month;     // from 1
    int day;       // from 1
    int dayOfWeek; // 0 is Sunday
    int hour, minutes, seconds;
};

Date now() {
    using namespace std::chrono;
    const sys_seconds moment{seconds(platform::world().clock->time())};
    const sys_days midnight = floor<days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss<seconds> time(moment - midnight);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(weekday(midnight).c_encoding()),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

template <int Date::*Field, int Plus = 0>
CMC_Variable * field(Call &) {
    return result(now().*Field + Plus);
}

CXString month(const Date & date) { return kMonths[date.month - 1]; }

CMC_Variable * getDate(Call &) {
    Date date = now();
    return result((date.year - 2000) * 10000 + date.month * 100 + date.day);
}

CMC_Variable * getDateString(Call &) {
    Date date = now();
    return result(CXString::toString(date.day) + "/" + month(date) + "/" + CXString::toString(date.year));
}

CMC_Variable * getDayOfWeekString(Call &) { return result(kDays[now().dayOfWeek]); }

CMC_Variable * getMonthString(Call &) { return result(month(now())); }

CMC_Variable * getTimeString(Call &) {
    Date date = now();
    return result(CXString::toString(date.hour) + ":" + CXString::toString(date.minutes));
}

CMC_Variable * getSystemTime(Call &) {
    return result(static_cast<int>(platform::world().clock->tickCount()));
}

CMC_Variable * getMHz(Call &) { return result(platform::world().clock->processorMHz()); }

CMC_Variable * delay(Call & call) {
    if (int milliseconds = call.integer(0); milliseconds > 0)
        platform::world().clock->sleep(static_cast<std::uint32_t>(milliseconds));
    return nullptr;
}

CWindow * window(const Call & call) {
    CMC_ObjectsContainer * scope = call.object->getScene();
    return scope ? scope->getWindow() : nullptr;
}

CMC_Variable * copyFile(Call & call) {
    CXString from = CPath::resolveFileName(window(call), call.text(0));
    CXString to = CPath::resolveFileName(window(call), call.text(1));
    return result(platform::world().files->copy(from.c_str(), to.c_str(), false));
}

CMC_Variable * minimize(Call & call) {
    if (CWindow * main = window(call)) main->minimize();
    return nullptr;
}

CCommandLine6 * commandLine(const Call & call) {
    CWindow * main = window(call);
    return main ? main->getCommandLine() : nullptr;
}

CMC_Variable * isCmdLineParameter(Call & call) {
    CCommandLine6 * line = commandLine(call);
    return result(line && line->isParameter(call.text(0)));
}

CMC_Variable * getCmdLineParameter(Call & call) {
    CCommandLine6 * line = commandLine(call);
    return result(line ? line->getParameter(call.text(0)) : CXString());
}

CMC_Variable * installsNothing(Call &) {
    notes::add(notes::Kind::other, "this build installs and removes no games");
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "GETDATE", "", 0, getDate},
    {2, "GETDATESTRING", "", 0, getDateString},
    {3, "GETDAY", "", 0, field<&Date::day>},
    {4, "GETDAYOFWEEK", "", 0, field<&Date::dayOfWeek, 1>},
    {5, "GETDAYOFWEEKSTRING", "", 0, getDayOfWeekString},
    {6, "GETMONTH", "", 0, field<&Date::month>},
    {7, "GETMONTHSTRING", "", 0, getMonthString},
    {8, "GETYEAR", "", 0, field<&Date::year>},
    {9, "GETTIMESTRING", "", 0, getTimeString},
    {10, "GETHOUR", "", 0, field<&Date::hour>},
    {11, "GETMINUTES", "", 0, field<&Date::minutes>},
    {12, "GETSECONDS", "", 0, field<&Date::seconds>},
    {13, "GETSYSTEMTIME", "", 0, getSystemTime},
    {14, "GETMHZ", "", 0, getMHz},
    {15, "DELAY", "milliseconds", 1, delay},
    {16, "COPYFILE", "from, to", 2, copyFile},
    {17, "MINIMIZE", "", 0, minimize},
    {18, "ISCMDLINEPARAMETER", "name", 1, isCmdLineParameter},
    {19, "GETCMDLINEPARAMETER", "name", 1, getCmdLineParameter},
    {20, "INSTALL", "game, full name", 2, installsNothing},
    {21, "UNINSTALL", "game", 1, installsNothing},
};

} // namespace

CMC_System_Runner::CMC_System_Runner() : CMC_Runner(kRows) {}
