// The host as far as the documents look at it while they read: it takes every line for its output and has one answer to
// all queries.
#pragma once

#include "orim/Repository.h"

namespace kestrune::fuzz {

inline orim::Repository RepositoryThatAnswers(Text answer) {
  struct Host : Dispatch {
    explicit Host(Text text) : answer(std::move(text)) {}
    Variant Invoke(Access, TextView member, Args) override {
      return member == orim::member::kQuery ? Variant(answer) : Variant();
    }
    Text answer;
  };
  return orim::Repository(Object(std::make_shared<Host>(std::move(answer))));
}

}  // namespace kestrune::fuzz
