#include "FlitmarkViewerComment.h"
