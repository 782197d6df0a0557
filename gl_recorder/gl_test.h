/// The fixture of tests that check GL calls: every error that the recorder notes fails the test.
#pragma once

#include <gtest/gtest.h>

#include "gl_recorder/gl_recorder.h"

class GlTest : public testing::Test {
 protected:
  void TearDown() override {
    gl.Finish();
    for (const std::string& error : gl.Errors()) ADD_FAILURE() << error;
  }

  /// The calls since the last use of this routine, one per line.
  std::string Calls() {
    const std::string text = gl_recorder::TextOf(gl.Log());
    gl.ClearLog();
    return text;
  }

  gl_recorder::Recorder gl;
};
