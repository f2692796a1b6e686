import SwiftUI

@main
struct WeatherApp: App {
    @State private var store = ForecastStore()

    var body: some Scene {
        WindowGroup {
            ForecastView()
                .environment(store)
        }
    }
}
