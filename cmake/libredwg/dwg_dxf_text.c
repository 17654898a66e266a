#include "dwg_dxf_text.h"

static _Thread_local int keeps_text_codes;

void dwg_dxf_keep_text_codes(int keep) {
  keeps_text_codes = keep;
}

int dwg_dxf_keeps_text_codes(void) {
  return keeps_text_codes;
}
