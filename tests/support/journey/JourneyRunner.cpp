#include "support/journey/JourneyRunner.h"

#include "platform/text/Text.h"

namespace bravona {

const std::map<std::string, JourneyRunner::Action, std::less<>>& JourneyRunner::actions()
{
    using R = JourneyRunner;
    static const std::map<std::string, Action, std::less<>> table{
        {"folder", &R::folder},
        {"today", &R::today},
        {"setting", &R::setting},
        {"year", &R::year},
        {"sql", &R::sql},
        {"copy", &R::copy},
        {"write", &R::write},
        {"bytes", &R::bytes},
        {"start", &R::start},
        {"menu", &R::menu},
        {"front", &R::front},
        {"focus", &R::focus},
        {"type", &R::type},
        {"key", &R::key},
        {"press", &R::press},
        {"choose", &R::choose},
        {"select", &R::select},
        {"doubleclick", &R::doubleClick},
        {"rightclick", &R::rightClick},
        {"column", &R::column},
        {"spin", &R::spin},
        {"paste", &R::paste},
        {"tick", &R::tick},
        {"check", &R::check},
        {"node", &R::node},
        {"cell", &R::cell},
        {"cellbutton", &R::cellButton},
        {"deleterow", &R::deleteRow},
        {"date", &R::date},
        {"tab", &R::tab},
        {"close", &R::close},
        {"answer", &R::answer},
        {"file", &R::file},
        {"colour", &R::colour},
        {"wait", &R::wait},
        {"fault", &R::fault},
        {"boxes", &R::boxes},
        {"picture", &R::picture},
        {"expect", &R::expect},
        {"show", &R::show},
    };
    return table;
}

JourneyResult JourneyRunner::run(const std::string& name, const std::vector<Step>& steps)
{
    steps_ = &steps;
    at_ = 0;
    depth_ = 0;
    stopped_ = false;
    restart_ = false;
    boxesFree_ = false;
    result_ = {};
    try {
        session_ = std::make_unique<JourneySession>(
            host_, options_.keepAt.empty() ? std::filesystem::path() : options_.keepAt / replaceAll(name, "/", "-"));
        host_.setNextStep([this] { return next(); });
        while (next()) {
            // A restart may itself be asked to restart while its first window is modal; whatever was open has been
            // unwound by now.
            while (restart_) {
                restart_ = false;
                session_->stop();
                ++depth_;
                session_->start();
                --depth_;
            }
        }
        if (result_.passed) {
            finish();
        }
    } catch (const std::exception& error) {
        fail(at_ == 0 ? 0 : steps[at_ - 1].line, error.what());
    }
    session_.reset();
    return result_;
}

// Does the next step. False when none is to be done here: the journey is over, has failed, or is about to restart.
bool JourneyRunner::next()
{
    if (stopped_ || at_ >= steps_->size() || (restart_ && depth_ > 0)) {
        return false;
    }
    const Step& step = (*steps_)[at_++];
    if (step.verb() == "restart") {
        if (!session_->started()) {
            fail(step.line, "the program has not been started");
            return false;
        }
        restart_ = true;
        return depth_ == 0;
    }
    if (step.verb() != "sql" && step.verb() != "expect" && step.verb() != "year") {
        session_->releaseArchive();
    }
    ++depth_;
    try {
        (this->*actions().find(step.verb())->second)(step);
        if (!session_->transcript.impossible.empty()) {
            fail(step.line, session_->transcript.impossible.front());
        }
    } catch (const Errore& error) {
        fail(step.line, std::to_string(error.numero()) + " - " + error.descrizione());
    } catch (const std::exception& error) {
        fail(step.line, error.what());
    }
    --depth_;
    return !stopped_;
}

void JourneyRunner::fail(int line, const std::string& reason)
{
    if (result_.passed) {
        result_ = {false, line, reason};
    }
    stopped_ = true;
}

// What was shown and nobody looked at.
void JourneyRunner::finish()
{
    if (boxesFree_) {
        return;
    }
    for (const Transcript::Box& shown : session_->transcript.boxes) {
        if (!shown.expected) {
            fail(steps_->empty() ? 0 : steps_->back().line, std::string(shown.box.fault ? "a failure" : "a box") +
                                                                " that no step expected: \"" + shown.box.title +
                                                                "\" \"" + shown.box.text + "\"");
            return;
        }
    }
}

}  // namespace bravona
