//
//  DateFormatting.h
//  Shared by Notebook and its companions
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

// "3 May 2012 at 14:07", in the user's language and order.
NSString *NBLongDate(NSDate *date);

// "just now", "5 minutes ago", "yesterday"; a long date after a week.
NSString *NBRelativeDate(NSDate *date, NSDate *now);

// "2012-05-03", for file names; the same everywhere.
NSString *NBFileDate(NSDate *date);
