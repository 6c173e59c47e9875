#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/journey/JourneyHost.h"
#include "support/journey/JourneySession.h"
#include "support/journey/JourneyText.h"

namespace bravona {

struct JourneyOptions {
    std::filesystem::path keepAt;                   // empty: program folders are thrown away
    std::filesystem::path picturesAt;               // empty: no pictures
    std::function<void(const std::string&)> print;  // what `show` says
};

struct JourneyResult {
    bool passed = true;
    int line = 0;  // of the step that failed
    std::string reason;
};

// Runs journeys, one after the other, on one host.
class JourneyRunner {
public:
    JourneyRunner(JourneyHost& host, JourneyOptions options) : host_(host), options_(std::move(options)) {}
    JourneyResult run(const std::string& name, const std::vector<Step>& steps);

private:
    using Action = void (JourneyRunner::*)(const Step&);
    static const std::map<std::string, Action, std::less<>>& actions();

    bool next();
    void fail(int line, const std::string& reason);
    void finish();
    [[nodiscard]] Desktop& desktop() { return session_->desktop(); }

    // Before the start, and the world around the program
    void folder(const Step& step);
    void today(const Step& step);
    void setting(const Step& step);
    void year(const Step& step);
    void sql(const Step& step);
    void copy(const Step& step);
    void write(const Step& step);
    void bytes(const Step& step);
    void start(const Step& step);
    void answer(const Step& step);
    void file(const Step& step);
    void colour(const Step& step);
    void wait(const Step& step);
    void fault(const Step& step);
    void boxes(const Step& step);
    void picture(const Step& step);

    // What the person does
    void menu(const Step& step);
    void front(const Step& step);
    void focus(const Step& step);
    void type(const Step& step);
    void key(const Step& step);
    void press(const Step& step);
    void choose(const Step& step);
    void select(const Step& step);
    void doubleClick(const Step& step);
    void rightClick(const Step& step);
    void column(const Step& step);
    void spin(const Step& step);
    void paste(const Step& step);
    void tick(const Step& step);
    void check(const Step& step);
    void node(const Step& step);
    void cell(const Step& step);
    void cellButton(const Step& step);
    void deleteRow(const Step& step);
    void date(const Step& step);
    void tab(const Step& step);
    void close(const Step& step);

    // What the person sees
    void expect(const Step& step);
    void show(const Step& step);

    void giveFocus(Control& control);
    void typeKeys(std::u32string_view text);
    void editFlexCell(FlexGrid& grid, int row, int col, const std::string& text);

    JourneyHost& host_;
    JourneyOptions options_;
    std::unique_ptr<JourneySession> session_;
    const std::vector<Step>* steps_ = nullptr;
    std::size_t at_ = 0;
    int depth_ = 0;  // of steps under way: those inside are taken while a modal window waits
    bool stopped_ = false;
    bool restart_ = false;
    bool boxesFree_ = false;
    JourneyResult result_;
};

}  // namespace bravona
