#include "FlitmarkCommentMode.h"
