#pragma once

/// Everything that an application includes. The library starts with DUIGetAppInstance (framework/app.h).

#include <qvui/foundation/color.h>
#include <qvui/foundation/ref_ptr.h>
#include <qvui/foundation/trace.h>
#include <qvui/framework/animation.h>
#include <qvui/framework/app.h>
#include <qvui/framework/control_base.h>
#include <qvui/framework/control_builder.h>
#include <qvui/framework/control_factory.h>
#include <qvui/framework/draw_manager.h>
#include <qvui/framework/html_drawer.h>
#include <qvui/framework/message_loop.h>
#include <qvui/framework/tool_tip.h>
#include <qvui/framework/window_mgr.h>
#include <qvui/platform/cimage.h>
#include <qvui/platform/cstring.h>
#include <qvui/render/background.h>
#include <qvui/render/bitmap_functions.h>
#include <qvui/render/dib_section.h>
#include <qvui/render/image_list.h>
#include <qvui/render/render_engine.h>
#include <qvui/skin/document_words.h>
#include <qvui/skin/resource_loader.h>
#include <qvui/skin/skin_manager.h>
#include <qvui/skin/xml_document.h>
