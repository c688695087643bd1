// A fake user for tests: records messages and questions, gives the answers that the test has set.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/user_interface.h"

namespace discwright::testing {

class FakeUser : public host::UserInterface {
 public:
  bool ShowMessage(const host::Message& box) override {
    messages.push_back(box);
    if (box.question && on_question) on_question();
    return !box.question || answer;
  }
  void DoEvents(int wait_milliseconds) override {
    ++do_events_calls;
    waited.push_back(wait_milliseconds);
    if (on_do_events) on_do_events();
  }
  void Wake() override {}
  std::string ChooseFolder(std::string_view start_folder, std::string_view title) override {
    asked.push_back(std::string(title) + " <" + std::string(start_folder) + ">");
    return folder_answer;
  }
  std::string ChooseFile(const host::FileRequest& request) override {
    asked.push_back(request.title + " <" + request.file_name + ">");
    file_filters.push_back(request.filter);
    file_requests.push_back(request);
    return file_answer;
  }
  bool HelpIsOpen(std::string_view window_class, std::string_view title) override {
    help_asked.push_back(std::string(window_class) + " <" + std::string(title) + ">");
    return help_is_open;
  }
  void ShowHelp(const host::HelpRequest& request) override {
    help_requests.push_back(request);
    help_shown.push_back(request.path + " " + std::to_string(request.topic_id));
  }
  void OpenLink(std::string_view address) override { links.emplace_back(address); }

  std::vector<host::Message> messages;
  bool answer = true;                 // to every question
  std::function<void()> on_question;  // called while a question is open
  std::vector<std::string> asked;
  std::vector<std::string> file_filters;
  std::vector<host::FileRequest> file_requests;
  std::vector<std::string> help_asked;  // "class <title>" of each call of HelpIsOpen
  std::vector<host::HelpRequest> help_requests;
  std::vector<std::string> help_shown;  // "path topic" of each call of ShowHelp
  std::vector<std::string> links;
  std::vector<int> waited;
  std::string folder_answer;
  std::string file_answer;
  bool help_is_open = false;
  int do_events_calls = 0;
  std::function<void()> on_do_events;  // called in each DoEvents, to act as the user
};

}  // namespace discwright::testing
